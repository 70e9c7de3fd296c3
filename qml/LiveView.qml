import QtQuick
import Pevrix

// Shown while a phone is connected: its live picture above the phone's name and the Record button.
Item {
    id: root

    required property string phoneName
    required property bool recording
    required property bool recordable // video flows, so that a recording could begin

    signal recordClicked()

    function setFrame(image: var) {
        preview.setFrame(image)
    }

    Rectangle {
        id: panel

        anchors {
            fill: parent
            leftMargin: 16
            topMargin: 16
            rightMargin: 16
            bottomMargin: bottomBar.height + 2 * 12
        }
        radius: 12
        clip: true
        gradient: Gradient {
            GradientStop { position: 0; color: "#243049" }
            GradientStop { position: 1; color: "#0d1220" }
        }

        FramePreview {
            id: preview

            anchors.fill: parent
            Accessible.role: Accessible.Graphic
            Accessible.name: qsTr("Live picture of the phone")
        }
    }

    Item {
        id: bottomBar

        anchors {
            left: parent.left
            right: parent.right
            bottom: parent.bottom
            margins: 16
            bottomMargin: 12
        }
        height: 34

        Rectangle {
            id: dot

            anchors.verticalCenter: parent.verticalCenter
            width: 8
            height: 8
            radius: 4
            color: Theme.accent
        }

        Text {
            anchors {
                left: dot.right
                leftMargin: Theme.sp2
                right: recordButton.left
                rightMargin: Theme.sp3
                verticalCenter: parent.verticalCenter
            }
            text: root.phoneName
            textFormat: Text.PlainText
            color: Theme.textc
            font.pixelSize: Theme.fsBody
            font.weight: Font.DemiBold
            elide: Text.ElideRight
        }

        RecordButton {
            id: recordButton

            anchors.right: parent.right
            recording: root.recording
            enabled: root.recording || root.recordable
            onClicked: root.recordClicked()
        }
    }
}
