import QtQuick

// The pairing code on white paper, or an ellipsis while there is none.
Rectangle {
    id: root

    required property string url
    required property real codeSize

    radius: 16
    color: Theme.paper

    Accessible.role: Accessible.Graphic
    //: For screen readers: names the picture of the QR code.
    Accessible.name: qsTr("Pairing code")

    // No smoothing, and whole pixels of the screen for each module, whatever the scaling: else some
    // modules would be a pixel wider than their neighbours. The size is the one nearest to the wanted
    // one; the paper's margin has room for the difference.
    Image {
        id: code

        // The image has eight pixels a module.
        readonly property int modules: implicitWidth / 8
        readonly property real ratio: Screen.devicePixelRatio
        readonly property int modulePixels: Math.max(1, Math.round(root.codeSize * ratio / modules))
        readonly property real fit: modules > 0 ? modules * modulePixels / (root.codeSize * ratio) : 1

        anchors.centerIn: parent
        width: root.codeSize
        height: root.codeSize
        source: root.url
        smooth: false
        visible: root.url !== ""
        transform: [
            Scale { xScale: code.fit; yScale: code.fit },
            Translate {
                // The middle stays where it is, as far as whole pixels allow. The rest keeps the edges
                // of modules away from the middles of pixels, where rounding would toss a coin.
                readonly property real shift: Math.round(root.codeSize * (1 - code.fit) / 2 * code.ratio)
                                              / code.ratio + 0.13 / code.ratio
                x: shift
                y: shift
            }
        ]
    }

    Text {
        anchors.centerIn: parent
        visible: root.url === ""
        text: "…"
        color: "#8a95a7"
        font.pixelSize: 22
    }
}
