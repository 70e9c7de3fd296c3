pragma ComponentBehavior: Bound

import QtQuick

// Three sliders.
Item {
    Column {
        anchors.centerIn: parent
        Repeater {
            model: [9, 2, 6] // where each knob sits

            Item {
                id: slider

                required property int modelData

                width: 14
                height: 5

                Rectangle {
                    y: 2
                    width: parent.width
                    height: 1
                    color: Theme.muted
                }

                Rectangle {
                    x: slider.modelData
                    width: 5
                    height: 5
                    radius: 2.5
                    color: Theme.muted
                }
            }
        }
    }
}
