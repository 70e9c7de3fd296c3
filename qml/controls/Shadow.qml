pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Effects

// A rectangle that casts a shadow around itself, to lie behind a card of its shape. Without a
// graphics API it is a plain rectangle.
Rectangle {
    id: root

    property color shadowColor
    property real blur: 0.7

    layer.enabled: visible && GraphicsInfo.api !== GraphicsInfo.Software
    layer.effect: MultiEffect {
        shadowEnabled: true
        shadowColor: root.shadowColor
        shadowBlur: root.blur
        shadowVerticalOffset: 3
    }
}
