import QtQuick
import QtQuick.Layouts
import Pevrix

// Warns that no phone can reach this PC, and offers to change that.
Rectangle {
    id: root

    signal allowClicked()

    implicitHeight: row.implicitHeight + 24
    radius: 10
    color: Qt.alpha(Theme.amber, 0.1)
    border.color: Qt.alpha(Theme.amber, 0.45)

    RowLayout {
        id: row

        anchors { left: parent.left; right: parent.right; margins: 14 }
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.sp3

        Dot {
            Layout.alignment: Qt.AlignTop
            Layout.topMargin: 5
            color: Theme.amber
        }

        Column {
            Layout.fillWidth: true
            spacing: 3

            Text {
                width: parent.width
                text: qsTr("Windows is blocking Pevrix on this network")
                wrapMode: Text.Wrap
                color: Theme.textc
                font.pixelSize: Theme.fsBody
                font.weight: Font.DemiBold
            }

            Text {
                width: parent.width
                text: qsTr("Your phone cannot reach this PC until you allow it. Asks for admin.")
                wrapMode: Text.Wrap
                color: Theme.muted
                font.pixelSize: Theme.fsCaption
            }
        }

        AppButton {
            text: qsTr("Allow")
            variant: "primary"
            size: Theme.btnHsm
            onClicked: root.allowClicked()
        }
    }
}
