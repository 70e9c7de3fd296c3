pragma ComponentBehavior: Bound

import QtQuick

// Invisible grips along the edges and in the corners of the card; each starts the system's resize.
Item {
    id: root

    required property real thickness

    signal resizeStarted(int edges)

    Repeater {
        model: [
            Qt.TopEdge, Qt.BottomEdge, Qt.LeftEdge, Qt.RightEdge,
            Qt.TopEdge | Qt.LeftEdge, Qt.TopEdge | Qt.RightEdge,
            Qt.BottomEdge | Qt.LeftEdge, Qt.BottomEdge | Qt.RightEdge
        ]

        MouseArea {
            required property int modelData // edges
            readonly property bool atLeft: (modelData & Qt.LeftEdge) !== 0
            readonly property bool atRight: (modelData & Qt.RightEdge) !== 0
            readonly property bool atTop: (modelData & Qt.TopEdge) !== 0
            readonly property bool atBottom: (modelData & Qt.BottomEdge) !== 0

            x: atRight ? root.width - root.thickness : 0
            y: atBottom ? root.height - root.thickness : 0
            width: atLeft || atRight ? root.thickness : root.width
            height: atTop || atBottom ? root.thickness : root.height
            cursorShape: !atLeft && !atRight ? Qt.SizeVerCursor
                         : !atTop && !atBottom ? Qt.SizeHorCursor
                         : atLeft === atTop ? Qt.SizeFDiagCursor : Qt.SizeBDiagCursor
            onPressed: root.resizeStarted(modelData)
        }
    }
}
