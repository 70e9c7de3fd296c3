import QtQuick
import QtQuick.Layouts

// Tells that a newer version exists. Dismissing it lasts until the program ends.
Rectangle {
    id: root

    required property bool available
    required property string latestVersion

    property bool dismissed: false

    signal downloadClicked()

    implicitHeight: available && !dismissed ? 36 : 0
    visible: height > 0
    color: Theme.accentSoft

    RowLayout {
        anchors { fill: parent; leftMargin: 14; rightMargin: 8 }
        spacing: Theme.sp3

        Dot {}

        ElidedText {
            Layout.fillWidth: true
            text: qsTr("Pevrix %1 is available.").arg(root.latestVersion)
            font.pixelSize: Theme.fsCaption
        }

        Clickable {
            id: download

            Layout.preferredWidth: downloadLabel.implicitWidth + 24
            Layout.preferredHeight: 22
            ringRadius: Theme.pill(22)
            Accessible.name: downloadLabel.text
            onClicked: root.downloadClicked()

            background: Rectangle {
                radius: Theme.pill(22)
                color: download.hovered ? Qt.darker(Theme.accentStrong, 1.12)
                                        : Theme.accentStrong
            }
            contentItem: Text {
                id: downloadLabel

                text: qsTr("Download")
                color: Theme.accentInk
                font.pixelSize: Theme.fsSmall
                font.weight: Font.DemiBold
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
            }
        }

        Clickable {
            id: dismiss

            Layout.preferredWidth: 26
            Layout.preferredHeight: 26
            ringRadius: Theme.rChip
            Accessible.name: qsTr("Dismiss")
            onClicked: root.dismissed = true

            background: Rectangle {
                radius: Theme.rChip
                color: Theme.raisedHover
                visible: dismiss.hovered
            }
            contentItem: Text {
                text: "✕"
                color: Theme.muted
                font.pixelSize: Theme.fsCaption
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
            }
        }
    }

    Rectangle {
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        height: 1
        color: Theme.hair
    }
}
