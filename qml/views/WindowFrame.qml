import QtQuick

// What the system's own frame does for other windows: moves the window, makes it as large as the
// screen, gives it back its size, and resizes it by the edges of this item, its card.
Item {
    id: root

    required property Window window
    required property size normalSize
    required property real shadow // the margin around the card of a window that is not maximised
    required property real thickness // of the grips

    property int restoreWidth: normalSize.width // the width before maximising
    property bool moving: false // a title-bar drag is under way

    function toggleMaximized(): void {
        if (window.visibility === Window.Maximized) {
            window.showNormal()
        } else {
            restoreWidth = window.width
            window.showMaximized()
        }
    }

    // A maximised window is restored first, so that the pointer keeps its relative place on the
    // title bar; `at` is in the bar, `global` on the screen.
    function startMove(at: point, global: point, barWidth: real): void {
        moving = true
        moveTimer.restart()
        if (window.visibility === Window.Maximized) {
            const cardWidth = restoreWidth - 2 * shadow
            window.showNormal()
            window.x = Math.round(global.x - shadow - at.x / barWidth * cardWidth)
            window.y = Math.round(global.y - at.y - shadow)
        }
        window.startSystemMove()
    }

    // The system does not reliably tell when its move has ended.
    Timer {
        id: moveTimer

        interval: 400
        onTriggered: root.moving = false
    }

    Shortcut {
        sequence: "Ctrl+0"
        onActivated: {
            root.window.showNormal()
            root.window.width = root.normalSize.width
            root.window.height = root.normalSize.height
        }
    }

    ResizeGrips {
        anchors.fill: parent
        visible: root.window.visibility !== Window.Maximized && !root.moving
        thickness: root.thickness
        onResizeStarted: edges => root.window.startSystemResize(edges)
    }
}
