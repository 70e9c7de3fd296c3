import QtQuick
import QtQuick.Templates as T

// Scrolls what is taller than itself, stops at the ends, and brings the control that takes the
// keyboard focus into view.
Flickable {
    id: root

    readonly property bool scrollable: contentHeight > height + 1 // it just fits: no scrolling
    property real barWidth: 10
    readonly property Item focusItem: Window.activeFocusItem

    contentWidth: width
    interactive: scrollable
    boundsBehavior: Flickable.StopAtBounds
    clip: true

    T.ScrollBar.vertical: ThinScrollBar {
        implicitWidth: root.barWidth
        visible: root.scrollable
    }

    onFocusItemChanged: if (focusItem !== null && isInside(focusItem)) {
        reveal(focusItem)
    }

    function isInside(item: Item): bool {
        for (let ancestor = item; ancestor !== null; ancestor = ancestor.parent) {
            if (ancestor === contentItem) {
                return true
            }
        }
        return false
    }

    function reveal(item: Item): void {
        const margin = 8
        const top = contentY + mapFromItem(item, 0, 0).y - margin
        const bottom = top + item.height + 2 * margin
        const wanted = Math.min(top, Math.max(contentY, bottom - height))
        contentY = Math.max(0, Math.min(wanted, contentHeight - height))
    }
}
