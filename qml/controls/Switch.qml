import QtQuick

// On or off. Shows `on` and leaves changing it to its owner.
Clickable {
    id: root

    required property bool on
    required property string name

    implicitWidth: 44
    implicitHeight: 26
    ringRadius: 13
    Accessible.role: Accessible.CheckBox
    Accessible.name: name
    Accessible.checkable: true
    Accessible.checked: on

    background: Rectangle {
        radius: 13
        color: root.on ? Theme.accentStrong : Theme.muted

        Behavior on color { enabled: !Motion.still; ColorAnimation { duration: 120 } }
    }

    contentItem: Item {
        Rectangle {
            x: root.on ? parent.width - width - 3 : 3
            y: 3
            width: 20
            height: 20
            radius: 10
            color: Theme.knob

            Behavior on x { enabled: !Motion.still; NumberAnimation { duration: 120 } }
        }
    }
}
