import QtQuick

// Starts and stops a recording, and shows how long it has lasted. Stopping is always possible;
// starting only while video flows, so that a click never silently does nothing.
Clickable {
    id: root

    required property bool recording
    required property string clock

    //: Button, a verb: begins to write the video into a file. Not: to register.
    readonly property string label: qsTr("Record")

    implicitWidth: content.width + 2 * Theme.btnPadX
    implicitHeight: Theme.btnH
    opacity: enabled ? 1 : 0.45
    Accessible.name: recording ? qsTr("Stop recording") : label

    background: Rectangle {
        radius: Theme.rControl
        color: root.recording ? Theme.red : root.hovered ? Theme.raisedHover : Theme.raised
        border.width: root.recording ? 0 : 1
        border.color: Theme.hair
    }

    contentItem: Item {
        Row {
            id: content

            anchors.centerIn: parent
            spacing: Theme.sp2

            Dot {
                anchors.verticalCenter: parent.verticalCenter
                width: 9
                height: 9
                radius: root.recording ? 2 : 4.5
                color: root.recording ? Theme.redSign : Theme.red
                low: 0.35
                pulsing: root.recording
            }

            Text {
                anchors.verticalCenter: parent.verticalCenter
                text: root.recording ? root.clock : root.label
                color: root.recording ? Theme.redInk : Theme.textc
                font.pixelSize: Theme.fsBody
                font.weight: Font.DemiBold
            }
        }
    }

    // The button itself shows the time by then.
    Hint {
        text: root.Accessible.name
        shown: root.recording && root.hovered
    }
}
