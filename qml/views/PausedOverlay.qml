import QtQuick

// Lies over the preview while the camera's output is paused.
Rectangle {
    color: Theme.chipScrim

    Column {
        anchors.centerIn: parent
        spacing: Theme.sp2

        PauseBars {
            anchors.horizontalCenter: parent.horizontalCenter
            color: Theme.amber
            barWidth: 5
            barHeight: 22
        }

        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 280
            text: qsTr("Camera output paused")
            color: Theme.onVideoText
            font.pixelSize: Theme.fsSubtitle
            font.weight: Font.DemiBold
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }

        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 280
            //: "Resume camera" is the name of the button above: the same words, in quotation marks.
            text: qsTr("Apps receive a frozen frame. Click Resume camera to broadcast again.")
            color: Theme.onVideoMuted
            font.pixelSize: Theme.fsCaption
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
    }
}
