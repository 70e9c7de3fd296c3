import QtQuick

// The pencil in the corner of a phone's card. Unseen it can still be reached with Tab, and then
// shows itself.
Clickable {
    id: root

    required property string phoneName
    required property bool revealed

    implicitWidth: 20
    implicitHeight: 18
    opacity: revealed || visualFocus ? 1 : 0
    ringRadius: Theme.rChip
    Accessible.name: qsTr("Rename %1").arg(phoneName)

    background: Rectangle {
        radius: Theme.rChip
        color: root.hovered ? Theme.raisedHover : Theme.surface
        border.color: Theme.hair
    }

    contentItem: PencilGlyph { color: Theme.muted }

    Hint {
        text: root.Accessible.name
        shown: root.hovered || root.visualFocus
    }
}
