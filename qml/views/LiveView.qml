import QtQuick
import QtQuick.Layouts

// Shown while a phone is connected: its picture, its name beside the Record button, and the strip
// of all phones.
Item {
    id: root

    required property string clock // how long the recording has lasted
    readonly property string videoState: shownVideo.state
    readonly property bool silent: videoState === "waiting" || videoState === "stalled"
    property alias renamingCard: rail.renamingCard
    readonly property real bottomBarHeight: bottomBar.height

    signal addPhoneClicked()
    signal menuRequested(Item field, real sceneX, real sceneY)
    signal menuAsked(Item field) // by a key

    function setFrame(image: var): void {
        preview.setFrame(image)
    }

    // A picture that turns or another phone begins a stream anew, which takes a moment: that is not
    // worth telling.
    QtObject {
        id: shownVideo

        readonly property string now: App.videoState
        property string state: now

        onNowChanged: {
            if (now === "waiting" && state === "flowing") {
                patience.restart()
            } else {
                patience.stop()
                state = now
            }
        }
    }

    Timer {
        id: patience

        interval: 300
        onTriggered: shownVideo.state = shownVideo.now
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
        videoState: root.videoState
        outputEnabled: App.outputEnabled
        appConnected: App.appConnected
        onOutputToggled: App.toggleOutput()
    }

    CallHintPlace {
        anchors { horizontalCenter: preview.horizontalCenter; bottom: preview.bottom; bottomMargin: 12 }
        width: preview.width
        height: 60
        wanted: root.visible && root.videoState === "flowing" && App.live && App.outputEnabled
    }

    Column {
        id: bottomBar

        anchors { left: parent.left; right: parent.right; bottom: parent.bottom; margins: 16 }
        spacing: 12

        RowLayout {
            width: parent.width
            height: 34
            spacing: Theme.sp2

            Dot {
                color: root.videoState === "stalled" ? Theme.amber
                       : root.videoState === "waiting" ? Theme.faint : Theme.accent
            }

            ElidedText {
                Layout.fillWidth: true
                text: App.phoneName
                font.weight: Font.DemiBold
            }

            RecordButton {
                objectName: "recordButton"
                recording: App.recording
                clock: root.clock
                enabled: App.recording || (App.live && App.outputEnabled && !root.silent)
                onClicked: App.toggleRecording()
            }
        }

        PhoneRail {
            id: rail

            width: parent.width
            videoState: root.videoState
            onAddPhoneClicked: root.addPhoneClicked()
            onMenuRequested: (field, x, y) => root.menuRequested(field, x, y)
            onMenuAsked: field => root.menuAsked(field)
        }
    }
}
