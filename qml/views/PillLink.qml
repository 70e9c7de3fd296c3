import QtQuick

// A link that should be seen: what a newcomer needs first.
Clickable {
    id: root

    required property string label
    required property string url

    implicitWidth: content.implicitWidth + 24
    implicitHeight: 26
    ringRadius: Theme.pill(26)
    Accessible.role: Accessible.Link
    Accessible.name: label
    onClicked: Qt.openUrlExternally(url)

    background: Rectangle {
        radius: Theme.pill(26)
        color: Theme.accentSoft
        border.color: root.hovered ? Theme.accent : Qt.alpha(Theme.accent, 0.45)
    }

    contentItem: ElidedText {
        id: content

        text: root.label
        color: Theme.accent
        font.pixelSize: Theme.fsCaption
        font.weight: Font.DemiBold
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
}
