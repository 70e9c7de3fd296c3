pragma ComponentBehavior: Bound

import QtQuick

// Three sliders.
Item {
    Column {
        anchors.centerIn: parent
        spacing: 1

        Repeater {
            model: [9, 2, 6] // where each knob sits

            Item {
                id: slider

                required property int modelData

                width: 14
                height: 4

                Rectangle {
                    y: 1.5
                    width: parent.width
                    height: 1
                    color: Theme.muted
                }

                Rectangle {
                    x: slider.modelData
                    width: 4
                    height: 4
                    radius: 2
                    color: Theme.muted
                }
            }
        }
    }
}
