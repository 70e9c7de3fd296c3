import QtQuick

// The dot that stands before a state.
Rectangle {
    id: root

    property bool pulsing: false // while the dot can be seen
    property real low: 0.3       // how far it fades

    readonly property bool seen: visible && Window.visibility !== Window.Hidden
                                 && Window.visibility !== Window.Minimized
    property int step: 0 // of the pulse: 0 is full, 10 is faded

    // Slow at both ends.
    readonly property real fade: {
        const way = step <= 10 ? step / 10 : 2 - step / 10
        return (1 - low) * (way < 0.5 ? 2 * way * way : 1 - 2 * (1 - way) * (1 - way))
    }

    implicitWidth: 8
    implicitHeight: 8
    radius: width / 2
    color: Theme.accent
    opacity: 1 - fade

    // 700 ms each way. Not an animation, which draws the whole window at the display's rate for as long
    // as it runs: for hours, while Pevrix waits for a phone.
    Timer {
        interval: 70
        repeat: true
        running: root.pulsing && root.seen && !Motion.still
        onRunningChanged: root.step = 0
        onTriggered: root.step = (root.step + 1) % 20
    }
}
