import QtQuick
import Pevrix

// The dot that stands before a state.
Rectangle {
    id: root

    property bool pulsing: false

    implicitWidth: 8
    implicitHeight: 8
    radius: width / 2
    color: Theme.accent

    Pulse on opacity { running: root.pulsing }
}
