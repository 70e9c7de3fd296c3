import QtQuick

// A triangle: "click to resume".
Canvas {
    id: root

    required property color color

    onColorChanged: requestPaint()
    onPaint: {
        const context = getContext("2d")
        context.reset()
        context.fillStyle = color
        context.beginPath()
        context.moveTo(0, 0)
        context.lineTo(width, height / 2)
        context.lineTo(0, height)
        context.fill()
    }
}
