import QtQuick

// Marks the card of the active phone.
Rectangle {
    implicitWidth: label.implicitWidth + 10
    implicitHeight: 16
    radius: 5
    color: "#cc0b0e15"
    border.color: "#33ffffff"

    Text {
        id: label

        anchors.centerIn: parent
        text: "LIVE"
        color: Theme.onVideoText
        font.pixelSize: 8
        font.weight: Font.DemiBold
        font.letterSpacing: 0.5
    }
}
