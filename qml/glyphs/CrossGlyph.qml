pragma ComponentBehavior: Bound

import QtQuick

// The X of a close button.
Item {
    id: root

    required property color color

    Repeater {
        model: [45, -45]

        Rectangle {
            required property int modelData

            anchors.centerIn: parent
            width: 12
            height: 1
            rotation: modelData
            antialiasing: true
            color: root.color
        }
    }
}
