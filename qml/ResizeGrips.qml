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
            readonly property bool left: (modelData.edges & Qt.LeftEdge) !== 0
            readonly property bool right: (modelData.edges & Qt.RightEdge) !== 0
            readonly property bool top: (modelData.edges & Qt.TopEdge) !== 0
            readonly property bool bottom: (modelData.edges & Qt.BottomEdge) !== 0

            x: right ? root.width - root.thickness : 0
            y: bottom ? root.height - root.thickness : 0
            width: left || right ? root.thickness : root.width
            height: top || bottom ? root.thickness : root.height
            cursorShape: modelData.cursor
            onPressed: root.resizeStarted(modelData.edges)
        }
    }
}
