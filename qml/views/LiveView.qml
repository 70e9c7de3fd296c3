import QtQuick
import QtQuick.Layouts

// Shown while a phone is connected: its picture, its name beside the Record button, and the strip
// of all phones.
Item {
    id: root

    required property string clock // how long the recording has lasted
    property alias renamingCard: rail.renamingCard

    signal addPhoneClicked()
    signal menuRequested(Item field, real sceneX, real sceneY)
    signal menuAsked(Item field) // by a key

    function setFrame(image: var): void {
        preview.setFrame(image)
    }

    PreviewPanel {
        id: preview

        anchors {
            fill: parent
            leftMargin: 16
            topMargin: 16
            rightMargin: 16
            bottomMargin: bottomBar.height + 16 + 12
        }
        outputEnabled: App.outputEnabled
        appConnected: App.appConnected
        onOutputToggled: App.toggleOutput()
    }

    Column {
        id: bottomBar

        anchors { left: parent.left; right: parent.right; bottom: parent.bottom; margins: 16 }
        spacing: 12

        RowLayout {
            width: parent.width
            height: 34
            spacing: Theme.sp2

            Dot {}

            ElidedText {
                Layout.fillWidth: true
                text: App.phoneName
                font.weight: Font.DemiBold
            }

            RecordButton {
                objectName: "recordButton"
                recording: App.recording
                clock: root.clock
                enabled: App.recording || (App.live && App.outputEnabled)
                onClicked: App.toggleRecording()
            }
        }

        PhoneRail {
            id: rail

            width: parent.width
            onAddPhoneClicked: root.addPhoneClicked()
            onMenuRequested: (field, x, y) => root.menuRequested(field, x, y)
            onMenuAsked: field => root.menuAsked(field)
        }
    }
}
