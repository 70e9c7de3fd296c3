import QtQuick
import QtQuick.Dialogs
import QtQuick.Layouts

// Settings: the camera's registration, where recordings go, the pairing code.
Column {
    id: root

    readonly property bool registered: visible && App.isCameraRegistered() // asked while it is seen

    spacing: 18

    Section {
        width: parent.width
        label: qsTr("CAMERA")

        InfoRow {
            Dot { color: root.registered ? Theme.accent : Theme.amber }

            ElidedText {
                Layout.fillWidth: true
                text: root.registered ? qsTr("Registered") : qsTr("Not registered")
            }

            AppButton {
                size: Theme.btnHsm
                variant: root.registered ? "neutral" : "primary"
                text: root.registered ? qsTr("Unregister") : qsTr("Register")
                Accessible.name: root.registered ? qsTr("Unregister the camera")
                                                 : qsTr("Register the camera")
                onClicked: root.registered ? App.unregisterCamera() : App.registerCamera()
            }
        }

        Note {
            text: qsTr("Registering lets apps like Zoom, Teams and browsers see the Pevrix camera. Asks for admin.")
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
                text: qsTr("Open")
                Accessible.name: qsTr("Open the recordings folder")
                onClicked: App.openRecordingsFolder()
            }

            AppButton {
                objectName: "changeFolder"
                size: Theme.btnHsm
                text: qsTr("Change")
                Accessible.name: qsTr("Change the recordings folder")
                onClicked: folderDialog.open()
            }
        }

        Note { text: qsTr("Where the Record button saves .mp4 files.") }
    }

    Section {
        width: parent.width
        label: qsTr("PAIRING")

        InfoRow {
            label: qsTr("Code")

            Text {
                text: "••••••••"
                color: Theme.muted
                font.pixelSize: Theme.fsBody
                Accessible.ignored: true
            }

            AppButton {
                size: Theme.btnHsm
                text: qsTr("Regenerate")
                Accessible.name: qsTr("Regenerate the pairing code")
                onClicked: App.regeneratePairing()
            }
        }

        Note { text: qsTr("Regenerating makes the current QR stop working for new phones.") }
    }

    FolderDialog {
        id: folderDialog

        title: qsTr("Choose recordings folder")
        onAccepted: App.setRecordingFolder(selectedFolder.toString())
    }
}
