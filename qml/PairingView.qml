import QtQuick
import Pevrix

// Shown while no phone is connected: the QR code to scan, and the address for typing it in.
Item {
    id: root

    required property string qrDataUrl   // empty while there is no code
    required property string pairAddress // address and port
    required property string pcName

    Flickable {
        id: scroller

        anchors.fill: parent
        contentWidth: width
        contentHeight: column.height + 40
        interactive: contentHeight > height + 1
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        Column {
            id: column

            x: (scroller.width - width) / 2
            y: Math.max(20, (scroller.height - height) / 2)
            width: 380
            spacing: 14

            Rectangle {
                id: chip

                anchors.horizontalCenter: parent.horizontalCenter
                width: chipRow.width + 28
                height: 28
                radius: 14
                color: Theme.raised
                border.color: Theme.hair

                Row {
                    id: chipRow

                    anchors.centerIn: parent
                    spacing: Theme.sp2

                    Rectangle {
                        id: dot

                        anchors.verticalCenter: parent.verticalCenter
                        width: 8
                        height: 8
                        radius: 4
                        color: Theme.accent

                        SequentialAnimation on opacity {
                            running: root.visible
                            loops: Animation.Infinite
                            NumberAnimation { to: 0.3; duration: 700; easing.type: Easing.InOutQuad }
                            NumberAnimation { to: 1.0; duration: 700; easing.type: Easing.InOutQuad }
                        }
                    }

                    Text {
                        text: qsTr("Ready to pair")
                        color: Theme.textc
                        font.pixelSize: Theme.fsCaption
                    }
                }
            }

            Text {
                width: parent.width
                text: qsTr("Connect your phone")
                color: Theme.textc
                font.pixelSize: Theme.fsHero
                font.weight: Font.DemiBold
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }

            Text {
                width: parent.width
                text: qsTr("Scan this code with the Pevrix app. Keep your phone on the same Wi-Fi as this PC.")
                color: Theme.muted
                font.pixelSize: Theme.fsBody
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }

            Rectangle {
                anchors.horizontalCenter: parent.horizontalCenter
                width: 198
                height: 198
                radius: 16
                color: Theme.paper

                // No smoothing: the modules of the code stay sharp.
                Image {
                    anchors.centerIn: parent
                    width: 168
                    height: 168
                    source: root.qrDataUrl
                    smooth: false
                    visible: root.qrDataUrl !== ""
                    Accessible.role: Accessible.Graphic
                    Accessible.name: qsTr("Pairing code")
                }

                Text {
                    anchors.centerIn: parent
                    visible: root.qrDataUrl === ""
                    text: "…"
                    color: "#8a95a7"
                    font.pixelSize: 22
                }
            }

            Rectangle {
                width: parent.width
                height: 44
                radius: Theme.rRow
                color: Theme.raised

                Text {
                    anchors { left: parent.left; leftMargin: 14; verticalCenter: parent.verticalCenter }
                    text: qsTr("Can't scan?")
                    color: Theme.muted
                    font.pixelSize: Theme.fsBody
                }

                Text {
                    anchors { right: parent.right; rightMargin: 14; verticalCenter: parent.verticalCenter }
                    text: root.pairAddress
                    color: Theme.textc
                    font.pixelSize: Theme.fsBtnLg
                    font.weight: Font.DemiBold
                }
            }

            Text {
                width: parent.width
                text: qsTr("This PC: %1").arg(root.pcName)
                textFormat: Text.PlainText
                color: Theme.faint
                font.pixelSize: Theme.fsCaption
                horizontalAlignment: Text.AlignHCenter
                elide: Text.ElideRight
            }
        }
    }
}
