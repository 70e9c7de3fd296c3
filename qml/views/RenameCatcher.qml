import QtQuick

// While the name of a card is edited, a click anywhere else commits it and does nothing more.
MouseArea {
    id: root

    required property PhoneCard card // null: none is edited

    anchors.fill: parent
    z: 300
    visible: card !== null
    acceptedButtons: Qt.AllButtons
    onPressed: mouse => {
        if (card.contains(card.mapFromItem(root, mouse.x, mouse.y))) {
            mouse.accepted = false
        } else {
            card.commitRename()
        }
    }
}
