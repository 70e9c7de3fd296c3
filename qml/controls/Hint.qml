pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

// The small text that appears beside the parent item while `shown`, after a moment. It is made
// only when it is needed.
Loader {
    id: root

    required property string text
    required property bool shown

    active: shown && text !== ""

    sourceComponent: T.ToolTip {
        id: tip

        parent: root.parent
        x: (root.parent.width - width) / 2
        y: root.parent.height + 6
        margins: 8
        padding: 7
        implicitWidth: Math.min(content.implicitWidth, 300) + leftPadding + rightPadding
        implicitHeight: content.implicitHeight + topPadding + bottomPadding
        delay: 500
        text: root.text
        Component.onCompleted: open() // `visible: true` would not wait for the delay

        contentItem: Text {
            id: content

            text: tip.text
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.textc
            font.pixelSize: Theme.fsSmall
        }

        background: Rectangle {
            radius: Theme.rChip
            color: Theme.surface
            border.color: Theme.hair
        }
    }
}
