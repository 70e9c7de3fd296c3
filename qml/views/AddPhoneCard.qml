import QtQuick

// The last card of the strip.
Clickable {
    id: root

    implicitWidth: 116
    implicitHeight: 118
    ringRadius: 12
    ringGap: -6
    Accessible.name: label.text

    background: Rectangle {
        radius: 12
        color: Qt.alpha(Theme.raised, root.hovered ? 1 : 0)
        border.color: Theme.hair
    }

    contentItem: Item {
        Column {
            anchors { left: parent.left; right: parent.right; margins: 8 }
            anchors.verticalCenter: parent.verticalCenter
            spacing: 6

            Item {
                width: parent.width
                height: 22

                Rectangle {
                    anchors.centerIn: parent
                    width: 20
                    height: 2
                    color: Theme.muted
                }

                Rectangle {
                    anchors.centerIn: parent
                    width: 2
                    height: 20
                    color: Theme.muted
                }
            }

            ElidedText {
                id: label

                width: parent.width
                text: qsTr("Add phone")
                hinted: root.visualFocus
                color: Theme.muted
                font.pixelSize: Theme.fsCaption
                horizontalAlignment: Text.AlignHCenter
            }
        }
    }
}
