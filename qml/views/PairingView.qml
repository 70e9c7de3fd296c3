import QtQuick

// Shown while no phone is connected: the code to scan, and the address for typing it in.
Item {
    id: root

    required property string qrDataUrl
    required property string pairAddress
    required property string pcName
    required property bool listening // phones can connect, as far as this program goes
    required property bool firewallBlocked
    required property string appUrl // where to get the phone app

    signal allowClicked()

    ScrollBody {
        id: scroller

        anchors.fill: parent
        barWidth: 11
        contentHeight: column.height + 40

        Column {
            id: column

            x: (scroller.width - width) / 2
            y: Math.max(20, (scroller.height - height) / 2)
            width: 380
            spacing: 14

            Rectangle {
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

                    Dot {
                        anchors.verticalCenter: parent.verticalCenter
                        pulsing: true
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
                lineHeight: 1.15
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }

            WarningPanel {
                width: parent.width
                visible: !root.listening
                title: qsTr("Phones cannot connect")
                text: qsTr("The Pevrix camera is missing, or another Pevrix uses it. Quit the other one or install Pevrix again, then start it anew.")
            }

            WarningPanel {
                width: parent.width
                visible: root.firewallBlocked
                title: qsTr("Windows is blocking Pevrix on this network")
                text: qsTr("Your phone cannot reach this PC until you allow it. Asks for admin.")
                action: qsTr("Allow")
                onActionClicked: root.allowClicked()
            }

            QrCode {
                anchors.horizontalCenter: parent.horizontalCenter
                width: 198
                height: 198
                url: root.qrDataUrl
                codeSize: 168
                // In the light theme the paper needs an edge.
                border.color: Theme.dark ? Theme.paper : Theme.hair
            }

            AddressRow {
                width: parent.width
                address: root.pairAddress
            }

            Row {
                anchors.horizontalCenter: parent.horizontalCenter
                spacing: Theme.sp2

                ElidedText {
                    width: Math.min(implicitWidth, column.width - dot.width - getApp.width
                                                   - 2 * Theme.sp2)
                    text: qsTr("This PC: %1").arg(root.pcName)
                    color: Theme.muted
                    font.pixelSize: Theme.fsCaption
                }

                Text {
                    id: dot

                    text: "·"
                    color: Theme.muted
                    font.pixelSize: Theme.fsCaption
                }

                LinkText {
                    id: getApp

                    label: qsTr("Get the app")
                    url: root.appUrl
                }
            }
        }
    }
}
