import QtQuick

// The pairing code once more, for another phone.
Modal {
    id: root

    required property string qrDataUrl
    required property string pairAddress

    title: qsTr("Add a phone")
    bodySpacing: Theme.sp4

    Text {
        width: parent.width
        text: qsTr("Scan this code with the Pevrix app on another phone.")
        wrapMode: Text.Wrap
        color: Theme.muted
        font.pixelSize: Theme.fsBody
        horizontalAlignment: Text.AlignHCenter
    }

    QrCode {
        anchors.horizontalCenter: parent.horizontalCenter
        width: 190
        height: 190
        url: root.qrDataUrl
        codeSize: 162
        border.color: Theme.dark ? Theme.paper : Theme.hair
    }

    AddressRow {
        objectName: "addressRow"
        width: parent.width
        address: root.pairAddress
    }
}
