import QtQuick
import QtQuick.Layouts

// A line over the video for somebody who has a picture now, and no program that takes it.
Rectangle {
    id: root

    required property real maxWidth
    required property bool registered // programs can find the camera

    signal registerClicked()
    signal dismissed()

    implicitWidth: Math.min(row.implicitWidth + 22, maxWidth)
    implicitHeight: Math.max(36, row.implicitHeight + 12)
    radius: Theme.rRow
    color: "#d90b0e15"
    border.color: "#33ffffff"

    Accessible.role: Accessible.StaticText
    Accessible.name: label.text

    RowLayout {
        id: row

        anchors { fill: parent; leftMargin: 14; rightMargin: 6 }
        spacing: Theme.sp2

        Text {
            id: label

            Layout.fillWidth: true
            text: root.registered
                  //: "Pevrix" is the name in the list of cameras of a video-call program.
                  ? qsTr("In your call, choose the camera “Pevrix”.")
                  : qsTr("Calls and browsers do not find the Pevrix camera yet.")
            textFormat: Text.PlainText
            color: Theme.onVideoText
            font.pixelSize: Theme.fsCaption
            wrapMode: Text.Wrap
        }

        AppButton {
            visible: !root.registered
            size: 26
            variant: "primary"
            //: Button: makes the camera known to Windows.
            text: qsTr("Register")
            onClicked: root.registerClicked()
        }

        Clickable {
            id: dismiss

            Layout.preferredWidth: 26
            Layout.preferredHeight: 26
            ringRadius: Theme.rChip
            Accessible.name: qsTr("Dismiss the hint")
            onClicked: root.dismissed()

            background: Rectangle {
                radius: Theme.rChip
                color: "#33ffffff"
                visible: dismiss.hovered
            }
            contentItem: CrossGlyph { color: Theme.onVideoMuted }
        }
    }
}
