import QtQuick
import QtQuick.Dialogs
import QtQuick.Layouts

// Settings: the camera's registration, where recordings go, the pairing code.
Column {
    id: root

    readonly property bool registered: visible && App.isCameraRegistered() // asked while it is seen
    readonly property bool registrable: App.cameraNeedsRegistration
    readonly property bool choosing: folderDialog.visible // the folder, in a window of its own
    property bool asking: false // whether to forget every phone
    property bool regenerated: false

    spacing: 18

    onVisibleChanged: asking = regenerated = false

    function regenerate(): void {
        App.regeneratePairing()
        asking = false
        regenerated = true
    }

    Section {
        width: parent.width
        label: qsTr("CAMERA")

        InfoRow {
            Dot { color: root.registered ? Theme.accent : Theme.amber }

            ElidedText {
                Layout.fillWidth: true
                //: Of the camera: programs can use it.
                text: !root.registrable ? root.registered ? qsTr("Ready") : qsTr("Camera library missing")
                      //: Of the camera: Windows knows it.
                      : root.registered ? qsTr("Registered")
                      //: Of the camera: Windows does not know it.
                      : qsTr("Not registered")
            }

            AppButton {
                size: Theme.btnHsm
                visible: root.registrable
                variant: root.registered ? "neutral" : "primary"
                //: Button: Windows is to forget the camera.
                text: root.registered ? qsTr("Unregister")
                      //: Button: makes the camera known to Windows.
                      : qsTr("Register")
                Accessible.name: root.registered ? qsTr("Unregister the camera")
                                                 : qsTr("Register the camera")
                onClicked: root.registered ? App.unregisterCamera() : App.wishToRegister()
            }
        }

        Note {
            text: !root.registrable
                  ? root.registered ? qsTr("Apps and browsers that take their cameras from PipeWire see the Pevrix camera.")
                                    : qsTr("No app can see the Pevrix camera. Install Pevrix again.")
                  : qsTr("Registering lets apps like Zoom, Teams and browsers see the Pevrix camera. Asks for admin.")
        }
    }

    Section {
        width: parent.width
        label: qsTr("RECORDINGS")

        InfoRow {
            ElidedText {
                Layout.fillWidth: true
                text: App.recordingFolder
                font.pixelSize: Theme.fsCaption
                elide: Text.ElideMiddle
            }

            AppButton {
                size: Theme.btnHsm
                //: Button: shows the recordings folder in the file manager.
                text: qsTr("Open")
                Accessible.name: qsTr("Open the recordings folder")
                onClicked: App.openRecordingsFolder()
            }

            AppButton {
                objectName: "changeFolder"
                size: Theme.btnHsm
                //: Button: chooses another recordings folder.
                text: qsTr("Change")
                Accessible.name: qsTr("Change the recordings folder")
                onClicked: {
                    folderDialog.currentFolder = App.folderToChooseFrom()
                    folderDialog.open()
                }
            }
        }

        //: "Record" is the button below the video: the same word, in quotation marks.
        Note { text: qsTr("Where the Record button saves .mp4 files.") }
    }

    Section {
        width: parent.width
        label: qsTr("PAIRING")

        InfoRow {
            label: qsTr("Code")

            Text {
                text: "••••••••"
                visible: !root.asking
                color: Theme.muted
                font.pixelSize: Theme.fsBody
                Accessible.ignored: true
            }

            AppButton {
                id: cancel

                size: Theme.btnHsm
                visible: root.asking
                text: qsTr("Cancel")
                onClicked: root.asking = false
            }

            AppButton {
                objectName: "regenerate"
                size: Theme.btnHsm
                variant: root.asking ? "danger" : "neutral"
                //: Button: makes a new pairing code.
                text: qsTr("Regenerate")
                Accessible.name: qsTr("Regenerate the pairing code")
                onClicked: {
                    if (root.asking || !App.trustsPhones) {
                        root.regenerate()
                    } else {
                        root.regenerated = false
                        root.asking = true
                        cancel.forceActiveFocus() // so that a second press does no harm
                    }
                }
            }
        }

        Note {
            text: root.asking ? qsTr("The current QR stops working and all paired phones are forgotten: they have to scan the new one. Go on?")
                  : root.regenerated ? qsTr("Done: there is a new QR. Phones that were paired have to scan it.")
                  : qsTr("Regenerating makes the current QR stop working for new phones.")
            color: root.asking || root.regenerated ? Theme.textc : Theme.muted
        }
    }

    FolderDialog {
        id: folderDialog

        title: qsTr("Choose recordings folder")
        onAccepted: App.setRecordingFolder(selectedFolder.toString())
    }
}
