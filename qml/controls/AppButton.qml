import QtQuick

// The push button. As wide as its label unless a width is set; the label is cut short then.
Clickable {
    id: root

    property string variant: "neutral" // or "primary", "outline", "danger"
    property int size: Theme.btnH      // height
    property int minWidth: 0

    implicitWidth: Math.max(minWidth, Math.ceil(label.implicitWidth) + 2 * Theme.btnPadX)
    implicitHeight: size
    opacity: enabled ? 1 : 0.45

    // A fill that is invisible at rest is its hover colour without opacity: fading from plain
    // "transparent", which is black, would pass through a dark tint.
    function fill(hover: bool): color {
        switch (variant) {
        case "primary": return hover ? Qt.darker(Theme.accent, 1.12) : Theme.accent
        case "outline": return Qt.alpha(Theme.accent, hover ? 1 : 0)
        case "danger": return Qt.alpha(Qt.darker(Theme.red, 1.1), hover ? 1 : 0)
        default: return hover ? Theme.raisedHover : Theme.raised
        }
    }

    function ink(hover: bool): color {
        switch (variant) {
        case "primary": return Theme.accentInk
        case "outline": return hover ? Theme.accentInk : Theme.accent
        case "danger": return !hover ? Theme.red : Theme.contrast ? Theme.redInk : Theme.onVideoText
        default: return Theme.textc
        }
    }

    background: Rectangle {
        radius: Theme.rControl
        color: root.fill(root.hovered)
        border.width: root.variant === "primary" ? 0 : 1
        border.color: root.variant === "outline" ? Theme.accent
                      : root.variant === "danger" ? Theme.red : Theme.hair

        Behavior on color { enabled: !Motion.still; ColorAnimation { duration: 90 } }
    }

    contentItem: ElidedText {
        id: label

        text: root.text
        hinted: root.visualFocus
        color: root.ink(root.hovered)
        font.pixelSize: Theme.fsBody
        font.weight: Font.DemiBold
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter

        Behavior on color { enabled: !Motion.still; ColorAnimation { duration: 90 } }
    }
}
