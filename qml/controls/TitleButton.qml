import QtQuick

// A button of the title bar: a drawn sign, its name on hover and with the keyboard.
Clickable {
    id: root

    required property string name

    implicitWidth: 36
    implicitHeight: 30
    Accessible.name: name

    background: Rectangle {
        radius: Theme.rControl
        color: Qt.alpha(Theme.raisedHover, root.hovered ? 1 : 0)

        Behavior on color { enabled: !Motion.still; ColorAnimation { duration: 90 } }
    }

    Hint {
        text: root.name
        shown: root.hovered || root.visualFocus
    }
}
