import QtQuick

// Use as `Pulse on opacity`: fades down to `low` and back for as long as it runs.
SequentialAnimation {
    id: root

    property real low: 0.3

    loops: Animation.Infinite
    alwaysRunToEnd: true

    NumberAnimation { to: root.low; duration: 700; easing.type: Easing.InOutQuad }
    NumberAnimation { to: 1.0; duration: 700; easing.type: Easing.InOutQuad }
}
