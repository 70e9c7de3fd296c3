import QtQuick

// Lies over the preview while no video comes from the phone. Before the first picture it hides what
// another phone has left there.
Rectangle {
    id: root

    required property bool stalled // there were pictures; else the first one is awaited

    color: Theme.chipScrim

    Rectangle {
        anchors.fill: parent
        visible: !root.stalled
        gradient: Gradient {
            GradientStop { position: 0; color: "#243049" }
            GradientStop { position: 1; color: "#0d1220" }
        }
    }

    Column {
        anchors.centerIn: parent
        width: Math.min(280, parent.width - 32)
        spacing: Theme.sp2

        PhoneGlyph {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 26
            height: 40
            radius: 6
            ink: root.stalled ? Theme.amber : Theme.onVideoMuted
            dots: !root.stalled
            bars: root.stalled
        }

        Text {
            width: parent.width
            text: root.stalled ? qsTr("Phone paused (no video)") : qsTr("Waiting for video…")
            color: Theme.onVideoText
            font.pixelSize: Theme.fsSubtitle
            font.weight: Font.DemiBold
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }

        Text {
            width: parent.width
            text: root.stalled ? qsTr("Open the Pevrix app on your phone to go on. Until then, apps see a placeholder.")
                               : qsTr("Keep the Pevrix app open on your phone.")
            color: Theme.onVideoMuted
            font.pixelSize: Theme.fsCaption
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
    }
}
