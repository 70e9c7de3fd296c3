import QtQuick
import QtQuick.Layouts

// Tells why no phone can reach this PC, and what to do about it.
Rectangle {
    id: root

    required property string title
    required property string text
    property string action // the button's text; empty: there is none

    signal actionClicked()

    enabled: visible // hidden, it must not keep the focus
    implicitHeight: row.implicitHeight + 24
    radius: 10
    color: Qt.alpha(Theme.amber, 0.1)
    border.color: Qt.alpha(Theme.amber, Theme.contrast ? 1 : 0.45)

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
                text: root.title
                wrapMode: Text.Wrap
                color: Theme.textc
                font.pixelSize: Theme.fsBody
                font.weight: Font.DemiBold
            }

            Text {
                width: parent.width
                text: root.text
                wrapMode: Text.Wrap
                color: Theme.muted
                font.pixelSize: Theme.fsCaption
            }
        }

        AppButton {
            visible: text !== ""
            text: root.action
            variant: "primary"
            size: Theme.btnHsm
            onClicked: root.actionClicked()
        }
    }
}
