pragma ComponentBehavior: Bound

import QtQuick

// Shown while no phone is connected: the code to scan, and the address for typing it in.
Item {
    id: root

    required property string qrDataUrl
    required property string pairAddress
    required property string pcName
    required property bool listening // phones can connect, as far as this program goes
    required property bool firewallBlocked
    required property bool unregistered // programs cannot find the camera
    required property string recordingClock // of a recording that waits for its phone; empty: none
    required property string appUrl // where to get the phone app
    required property bool covered // by a dialog
    property bool retried: false // to get the camera, in vain

    readonly property bool hasNetwork: App.hasLanAddress
    readonly property bool ready: listening && hasNetwork

    signal allowClicked()
    signal registerClicked()
    signal retryClicked()
    signal stopRecordingClicked()

    onListeningChanged: retried = false

    // Success takes the panel away that asked for it.
    function retry(): void {
        retryClicked()
        retried = !listening
    }

    ScrollBody {
        id: scroller

        anchors.fill: parent
        barWidth: 11
        contentHeight: column.height + 40

        Column {
            id: column

            x: Math.round((scroller.width - width) / 2)
            y: Math.max(20, Math.round((scroller.height - height) / 2))
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
                        color: root.ready ? Theme.accent : Theme.amber
                        pulsing: root.ready
                    }

                    Text {
                        text: root.ready ? qsTr("Ready to pair")
                              : root.listening ? qsTr("No network")
                              //: Of the program: phones cannot connect.
                              : qsTr("Not ready")
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
                visible: root.listening
                text: qsTr("Scan this code with the Pevrix app. Keep your phone on the same Wi-Fi as this PC.")
                color: Theme.muted
                font.pixelSize: Theme.fsBody
                lineHeight: 1.15
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }

            Loader {
                width: parent.width
                active: !root.listening
                visible: active

                sourceComponent: WarningPanel {
                    title: root.retried ? qsTr("Phones still cannot connect") : qsTr("Phones cannot connect")
                    //: At the end, "it" is Pevrix, neither the PC nor the camera.
                    text: qsTr("The Pevrix camera is missing, or another Pevrix uses it. Quit the other one or install Pevrix again, then start it anew.")
                    action: qsTr("Try again")
                    onActionClicked: root.retry()
                }
            }

            Loader {
                width: parent.width
                active: root.listening && !root.hasNetwork
                visible: active

                sourceComponent: WarningPanel {
                    title: qsTr("This PC is not on a network")
                    //: "it" is this PC.
                    text: qsTr("Connect it to your Wi-Fi or plug in a network cable. A phone on a USB cable works without.")
                }
            }

            Loader {
                width: parent.width
                active: root.firewallBlocked
                visible: active

                sourceComponent: WarningPanel {
                    title: qsTr("Windows is blocking Pevrix on this network")
                    text: qsTr("Your phone cannot reach this PC until you allow it. Asks for admin.")
                    action: qsTr("Allow")
                    onActionClicked: root.allowClicked()
                }
            }

            // One thing at a time: first phones must get through.
            Loader {
                width: parent.width
                active: root.unregistered && root.ready && !root.firewallBlocked
                visible: active

                sourceComponent: WarningPanel {
                    title: qsTr("Calls and browsers do not find the camera yet")
                    text: qsTr("Register the Pevrix camera once. Asks for admin.")
                    //: Button: makes the camera known to Windows.
                    action: qsTr("Register")
                    onActionClicked: root.registerClicked()
                }
            }

            Loader {
                width: parent.width
                active: root.recordingClock !== ""
                visible: active

                sourceComponent: WarningPanel {
                    title: qsTr("A recording waits for its phone (%1)").arg(root.recordingClock)
                    //: "It" is the recording.
                    text: qsTr("It goes on when the phone is back.")
                    action: qsTr("Stop recording")
                    onActionClicked: root.stopRecordingClicked()
                }
            }

            QrCode {
                anchors.horizontalCenter: parent.horizontalCenter
                visible: root.listening || url !== ""
                width: 198
                height: 198
                url: root.qrDataUrl
                codeSize: 168
                // In the light theme the paper needs an edge.
                border.color: Theme.dark ? Theme.paper : Theme.hair
            }

            AddressRow {
                objectName: "addressRow"
                width: parent.width
                visible: root.listening || address !== ""
                address: root.pairAddress
                opacity: root.covered ? 0 : 1 // a dialog's edge would go through the middle of the line
            }

            Row {
                anchors.horizontalCenter: parent.horizontalCenter
                spacing: Theme.sp2
                opacity: root.covered ? 0 : 1

                ElidedText {
                    anchors.verticalCenter: parent.verticalCenter
                    width: Math.min(implicitWidth, column.width - dot.width - getApp.width
                                                   - 2 * Theme.sp2)
                    text: qsTr("This PC: %1").arg(root.pcName)
                    color: Theme.muted
                    font.pixelSize: Theme.fsCaption
                }

                Text {
                    id: dot

                    anchors.verticalCenter: parent.verticalCenter
                    text: "·"
                    color: Theme.muted
                    font.pixelSize: Theme.fsCaption
                }

                PillLink {
                    id: getApp

                    label: qsTr("Get the app")
                    url: root.appUrl
                }
            }
        }
    }
}
