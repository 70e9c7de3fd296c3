import QtQuick

// A rectangle that casts a shadow around itself, to lie behind a card of its shape. Without a
// graphics API it is a plain rectangle.
Rectangle {
    id: root

    property color shadowColor
    property real blur: 0.7

    SoftShadow {
        y: 3
        z: -1
        width: root.width
        height: root.height
        visible: GraphicsInfo.api !== GraphicsInfo.Software
        radius: root.radius
        blur: root.blur
        color: root.shadowColor
    }
}
