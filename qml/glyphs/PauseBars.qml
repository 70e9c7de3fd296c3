import QtQuick

// Two bars: paused, or "click to pause".
Row {
    id: root

    required property color color
    required property real barWidth
    required property real barHeight

    spacing: barWidth

    Rectangle {
        width: root.barWidth
        height: root.barHeight
        radius: width / 4
        color: root.color
    }

    Rectangle {
        width: root.barWidth
        height: root.barHeight
        radius: width / 4
        color: root.color
    }
}
