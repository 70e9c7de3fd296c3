import QtQuick

// Marks the card of the active phone.
Rectangle {
    implicitWidth: label.implicitWidth + 10
    implicitHeight: 16
    radius: 5
    color: Theme.badge
    border.color: Theme.badgeHair

    Text {
        id: label

        anchors.centerIn: parent
        text: "LIVE"
        renderType: Text.NativeRendering // hinted: eight pixels are few
        color: Theme.onVideoText
        font.pixelSize: 8
        font.weight: Font.Bold
        font.letterSpacing: 0.5
    }
}
