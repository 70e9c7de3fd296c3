import QtQuick
import Pevrix

// Starts and stops a recording, and shows how long it has lasted. Stopping is always possible;
// starting only while video flows, so that a click never silently does nothing.
Item {
    id: root

    required property bool recording

    property int seconds: 0 // since the recording started
    readonly property string clock: Math.floor(seconds / 60) + ":"
                                    + String(seconds % 60).padStart(2, "0")

    signal clicked()

    implicitWidth: content.width + 2 * Theme.btnPadX
    implicitHeight: Theme.btnH
    opacity: enabled ? 1 : 0.45
    activeFocusOnTab: true

    Accessible.role: Accessible.Button
    Accessible.name: recording ? qsTr("Stop recording") : qsTr("Record")
    Accessible.onPressAction: root.clicked()
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()
    Keys.onSpacePressed: root.clicked()

    onRecordingChanged: seconds = 0

    Timer {
        interval: 1000
        repeat: true
        running: root.recording
        onTriggered: ++root.seconds
    }

    Rectangle {
        anchors.fill: parent
        radius: Theme.rControl
        color: root.recording ? Theme.red : area.containsMouse ? Theme.raisedHover : Theme.raised
        border.width: root.activeFocus ? 2 : root.recording ? 0 : 1
        border.color: root.activeFocus ? Theme.accent : Theme.hair
    }

    Row {
        id: content

        anchors.centerIn: parent
        spacing: Theme.sp2

        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: 9
            height: 9
            radius: root.recording ? 2 : 4.5
            color: root.recording ? Theme.onVideoText : Theme.red

            SequentialAnimation on opacity {
                running: root.recording
                loops: Animation.Infinite
                alwaysRunToEnd: true
                NumberAnimation { to: 0.35; duration: 700; easing.type: Easing.InOutQuad }
                NumberAnimation { to: 1.0; duration: 700; easing.type: Easing.InOutQuad }
            }
        }

        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: root.recording ? root.clock : qsTr("Record")
            color: root.recording ? Theme.onVideoText : Theme.textc
            font.pixelSize: Theme.fsBody
            font.weight: Font.DemiBold
        }
    }

    MouseArea {
        id: area

        anchors.fill: parent
        hoverEnabled: true
        cursorShape: root.enabled ? Qt.PointingHandCursor : Qt.ArrowCursor
        onClicked: root.clicked()
    }
}
