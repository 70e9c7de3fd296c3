import QtQuick

// A pencil, tip at the lower left.
Item {
    id: root

    required property color color

    implicitWidth: 10
    implicitHeight: 10

    Row {
        anchors.centerIn: parent
        rotation: 135
        spacing: 1

        Rectangle { // rubber
            width: 2
            height: 3
            antialiasing: true
            color: root.color
        }

        Rectangle { // shaft
            width: 6
            height: 3
            antialiasing: true
            color: root.color
        }

        Rectangle { // tip
            anchors.verticalCenter: parent.verticalCenter
            width: 2
            height: 1.5
            antialiasing: true
            color: root.color
        }
    }
}
