pragma ComponentBehavior: Bound

import QtQuick

// The outline of a phone.
Rectangle {
    id: root

    required property color ink
    property bool bars: false // on its screen: paused
    property bool dots: false // on its screen: something is to come

    implicitWidth: 44
    implicitHeight: 62
    radius: 9
    color: "transparent"
    border.width: 2.5
    border.color: ink

    Rectangle {
        anchors { horizontalCenter: parent.horizontalCenter; top: parent.top; topMargin: 7 }
        width: 12
        height: 2
        radius: 1
        color: root.ink
    }

    PauseBars {
        anchors.centerIn: parent
        visible: root.bars
        color: root.ink
        barWidth: 3
        barHeight: 11
    }

    Row {
        anchors.centerIn: parent
        visible: root.dots
        spacing: 2

        Repeater {
            model: 3

            Rectangle {
                width: 3
                height: 3
                radius: 1.5
                color: root.ink
            }
        }
    }
}
