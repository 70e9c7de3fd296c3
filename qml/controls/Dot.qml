import QtQuick

// The dot that stands before a state.
Rectangle {
    id: root

    property bool pulsing: false // while the dot can be seen
    property real low: 0.3       // how far it fades

    readonly property bool seen: visible && Window.visibility !== Window.Hidden
                                 && Window.visibility !== Window.Minimized

    implicitWidth: 8
    implicitHeight: 8
    radius: width / 2
    color: Theme.accent

    Pulse on opacity {
        low: root.low
        running: root.pulsing && root.seen
    }
}
