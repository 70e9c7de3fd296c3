import QtQuick

// Marks the control that it fills as the one that has the keyboard. Between two thin lines of the
// theme's ground, so that it is seen on a picture and on a fill of its own colour, too.
Item {
    id: root

    required property real cornerRadius // of the control
    required property real gap          // negative: the ring lies inside

    Rectangle {
        anchors.fill: parent
        anchors.margins: 1 - root.gap - border.width
        color: "transparent"
        radius: Math.max(0, root.cornerRadius - anchors.margins)
        border.width: 4
        border.color: Theme.focusHalo
    }

    Rectangle {
        anchors.fill: parent
        anchors.margins: -root.gap - border.width
        color: "transparent"
        radius: Math.max(0, root.cornerRadius - anchors.margins)
        border.width: 2
        border.color: Theme.focus
    }
}
