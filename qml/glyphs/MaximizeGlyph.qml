import QtQuick

// One square, or two offset ones for a window that is maximised.
Item {
    id: root

    required property bool maximized

    Rectangle {
        anchors.centerIn: parent
        visible: !root.maximized
        width: 10
        height: 10
        color: "transparent"
        border.color: Theme.muted
    }

    Item {
        anchors.centerIn: parent
        visible: root.maximized
        width: 12
        height: 12

        Rectangle {
            x: 3
            width: 9
            height: 9
            color: "transparent"
            border.color: Theme.muted
        }

        Rectangle {
            y: 3
            width: 9
            height: 9
            color: Theme.raised
            border.color: Theme.muted
        }
    }
}
