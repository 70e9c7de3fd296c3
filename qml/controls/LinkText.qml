import QtQuick

// A link that opens in the browser.
Clickable {
    id: root

    required property string label
    required property string url

    implicitWidth: content.implicitWidth
    implicitHeight: content.implicitHeight
    ringRadius: 3
    Accessible.role: Accessible.Link
    Accessible.name: label
    onClicked: Qt.openUrlExternally(url)

    contentItem: ElidedText {
        id: content

        text: root.label
        hinted: root.visualFocus
        color: Theme.accentStrong
        font.pixelSize: Theme.fsCaption
        font.underline: root.hovered
    }
}
