import QtQuick

// The dot that stands before a state.
Rectangle {
    id: root

    property bool pulsing: false // while the dot can be seen
    property real low: 0.3       // how far it fades

    property real fade // of the pulse
    readonly property bool seen: visible && Window.visibility !== Window.Hidden
                                 && Window.visibility !== Window.Minimized

    implicitWidth: 8
    implicitHeight: 8
    radius: width / 2
    color: Theme.accent
    opacity: Motion.still ? 1 : 1 - fade

    Pulse on fade {
        low: root.low
        running: root.pulsing && root.seen && !Motion.still
    }
}
