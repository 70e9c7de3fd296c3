import QtQuick

// One action of the edit menu.
Rectangle {
    id: root

    required property string action // the text input's function
    required property string label
    required property string keys // its shortcut
    required property bool active
    required property bool chosen // by the keyboard
    required property color ink
    required property color faded // while it is not active
    required property color hoverColor

    signal triggered()

    objectName: action
    width: parent.width
    height: 26
    radius: 5
    border.width: chosen ? 2 : 0
    border.color: Theme.focus
    color: Qt.alpha(hoverColor, active && (area.containsMouse || chosen) ? 1 : 0)

    Accessible.role: Accessible.MenuItem
    Accessible.name: label
    Accessible.onPressAction: if (active) {
        triggered()
    }

    Behavior on color { enabled: !Motion.still; ColorAnimation { duration: 80 } }

    ElidedText {
        anchors {
            left: parent.left
            leftMargin: 9
            right: shortcut.left
            rightMargin: Theme.sp2
            verticalCenter: parent.verticalCenter
        }
        text: root.label
        color: root.active ? root.ink : root.faded
        font.pixelSize: Theme.fsCaption
    }

    Text {
        id: shortcut

        anchors { right: parent.right; rightMargin: 9; verticalCenter: parent.verticalCenter }
        text: root.keys
        color: root.faded
        font.pixelSize: 10
    }

    MouseArea {
        id: area

        anchors.fill: parent
        hoverEnabled: true
        cursorShape: root.active ? Qt.PointingHandCursor : Qt.ArrowCursor
        onClicked: if (root.active) {
            root.triggered()
        }
    }
}
