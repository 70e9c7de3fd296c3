import QtQuick

// A line that is cut short where it does not fit, and shows its whole text on hover then, or while the
// control that it belongs to has the keyboard.
Text {
    id: root

    property bool hinted: false // by the keyboard

    textFormat: Text.PlainText
    elide: Text.ElideRight
    color: Theme.textc
    font.pixelSize: Theme.fsBody

    HoverHandler {
        id: hover

        enabled: root.truncated
    }

    Hint {
        text: root.text
        shown: root.truncated && (hover.hovered || root.hinted)
    }
}
