import QtQuick

// A line that is cut short where it does not fit, and shows its whole text on hover then.
Text {
    id: root

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
        shown: root.truncated && hover.hovered
    }
}
