import QtQuick

// The pairing code on white paper, or an ellipsis while there is none.
Rectangle {
    id: root

    required property string url
    required property real codeSize

    radius: 16
    color: Theme.paper

    Accessible.role: Accessible.Graphic
    Accessible.name: qsTr("Pairing code")

    // No smoothing: the modules of the code stay sharp.
    Image {
        anchors.centerIn: parent
        width: root.codeSize
        height: root.codeSize
        source: root.url
        smooth: false
        visible: root.url !== ""
    }

    Text {
        anchors.centerIn: parent
        visible: root.url === ""
        text: "…"
        color: "#8a95a7"
        font.pixelSize: 22
    }
}
