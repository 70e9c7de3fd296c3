import QtQuick
import QtQuick.Layouts

// Shown while a phone is connected: its picture, its name beside the Record button, and the strip
// of all phones.
Item {
    id: root

    required property var app // the controller
    required property string clock // how long the recording has lasted
    property alias renamingCard: rail.renamingCard

    signal addPhoneClicked()
    signal menuRequested(Item field, real sceneX, real sceneY)

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
        outputEnabled: root.app.outputEnabled
        appConnected: root.app.appConnected
        onOutputToggled: root.app.toggleOutput()
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
                text: root.app.phoneName
                font.weight: Font.DemiBold
            }

            RecordButton {
                objectName: "recordButton"
                recording: root.app.recording
                clock: root.clock
                enabled: root.app.recording || (root.app.live && root.app.outputEnabled)
                onClicked: root.app.toggleRecording()
            }
        }

        PhoneRail {
            id: rail

            width: parent.width
            app: root.app
            onAddPhoneClicked: root.addPhoneClicked()
            onMenuRequested: (field, x, y) => root.menuRequested(field, x, y)
        }
    }
}
