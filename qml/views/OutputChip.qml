import QtQuick

// The camera's switch on the video: tells whether programs get the live picture, and pauses or
// resumes it.
Clickable {
    id: root

    required property bool live // the output is not paused
    property string videoState: "flowing" // or "waiting", "stalled"

    readonly property bool flowing: live && videoState !== "waiting" && videoState !== "stalled"
    readonly property color stateColor: flowing ? Theme.accent
                                        : live && videoState === "waiting" ? Theme.onVideoMuted
                                        : Theme.amber
    readonly property string stateText: !live ? "PAUSED" : flowing ? "LIVE"
                                        //: On a small chip, in capitals: the first picture is awaited.
                                        : videoState === "waiting" ? qsTr("WAITING")
                                        //: On a small chip, in capitals: the phone sends no pictures.
                                        : qsTr("NO VIDEO")

    implicitWidth: content.width + 22
    implicitHeight: 26
    ringRadius: Theme.pill(26)
    Accessible.name: live ? qsTr("Pause camera")
                     //: Programs get the live picture again. PausedOverlay quotes it: keep both the same.
                     : qsTr("Resume camera")

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
                pulsing: root.flowing
            }

            Text {
                anchors.verticalCenter: parent.verticalCenter
                text: root.stateText
                color: Theme.onVideoText
                font.pixelSize: Theme.fsSmall
                font.weight: Font.DemiBold
            }

            Item {
                anchors.verticalCenter: parent.verticalCenter
                width: 9
                height: 9
                opacity: root.hovered ? 1 : 0.5

                PauseBars {
                    anchors.centerIn: parent
                    visible: root.live
                    color: Theme.onVideoText
                    barWidth: 3
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
