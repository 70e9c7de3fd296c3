pragma ComponentBehavior: Bound

import QtQuick

// Invisible grips along the edges and in the corners of the card; each starts the system's resize.
Item {
    id: root

    required property real thickness

    signal resizeStarted(int edges)

    Repeater {
        model: [
            { edges: Qt.TopEdge, cursor: Qt.SizeVerCursor },
            { edges: Qt.BottomEdge, cursor: Qt.SizeVerCursor },
            { edges: Qt.LeftEdge, cursor: Qt.SizeHorCursor },
            { edges: Qt.RightEdge, cursor: Qt.SizeHorCursor },
            { edges: Qt.TopEdge | Qt.LeftEdge, cursor: Qt.SizeFDiagCursor },
            { edges: Qt.TopEdge | Qt.RightEdge, cursor: Qt.SizeBDiagCursor },
            { edges: Qt.BottomEdge | Qt.LeftEdge, cursor: Qt.SizeBDiagCursor },
            { edges: Qt.BottomEdge | Qt.RightEdge, cursor: Qt.SizeFDiagCursor }
        ]

        MouseArea {
            required property var modelData
            readonly property bool atLeft: (modelData.edges & Qt.LeftEdge) !== 0
            readonly property bool atRight: (modelData.edges & Qt.RightEdge) !== 0
            readonly property bool atTop: (modelData.edges & Qt.TopEdge) !== 0
            readonly property bool atBottom: (modelData.edges & Qt.BottomEdge) !== 0

            x: atRight ? root.width - root.thickness : 0
            y: atBottom ? root.height - root.thickness : 0
            width: atLeft || atRight ? root.thickness : root.width
            height: atTop || atBottom ? root.thickness : root.height
            cursorShape: modelData.cursor
            onPressed: root.resizeStarted(modelData.edges)
        }
    }
}
