import QtQuick

// The outline of a phone.
Rectangle {
    id: root

    required property color ink

    implicitWidth: 44
    implicitHeight: 62
    radius: 9
    color: "transparent"
    border.width: 2.5
    border.color: ink

    Rectangle {
        anchors { horizontalCenter: parent.horizontalCenter; top: parent.top; topMargin: 7 }
        width: 12
        height: 2
        radius: 1
        color: root.ink
    }
}
