import QtQuick

// The camera's switch on the video: tells whether programs get the live picture, and pauses or
// resumes it.
Clickable {
    id: root

    required property bool live // the output is not paused

    readonly property color stateColor: live ? Theme.accent : Theme.amber

    implicitWidth: content.width + 22
    implicitHeight: 26
    ringRadius: Theme.pill(26)
    Accessible.name: live ? qsTr("Pause camera") : qsTr("Resume camera")

    background: Rectangle {
        radius: 13
        color: Theme.chipScrim
        border.color: root.stateColor
    }

    contentItem: Item {
        Row {
            id: content

            anchors.centerIn: parent
            spacing: 7

            Dot {
                anchors.verticalCenter: parent.verticalCenter
                color: root.stateColor
                pulsing: root.live
            }

            Text {
                anchors.verticalCenter: parent.verticalCenter
                text: root.live ? "LIVE" : "PAUSED"
                color: Theme.onVideoText
                font.pixelSize: Theme.fsSmall
                font.weight: Font.DemiBold
            }

            Item {
                anchors.verticalCenter: parent.verticalCenter
                width: 8
                height: 9
                opacity: root.hovered ? 1 : 0.5

                PauseBars {
                    anchors.centerIn: parent
                    visible: root.live
                    color: Theme.onVideoText
                    barWidth: 2.5
                    barHeight: 9
                }

                PlayGlyph {
                    anchors.fill: parent
                    visible: !root.live
                    color: Theme.onVideoText
                }
            }
        }
    }

    Hint {
        text: root.Accessible.name
        shown: root.hovered || root.visualFocus
    }
}
