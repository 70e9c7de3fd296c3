import QtQuick

// Use as `Pulse on fade`: from nothing up to what is left above `low`, and back, for as long as it runs.
SequentialAnimation {
    id: root

    property real low: 0.3

    loops: Animation.Infinite
    alwaysRunToEnd: true

    NumberAnimation { to: 1 - root.low; duration: 700; easing.type: Easing.InOutQuad }
    NumberAnimation { to: 0; duration: 700; easing.type: Easing.InOutQuad }
}
