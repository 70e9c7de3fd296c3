pragma ComponentBehavior: Bound

import QtQuick
import Pevrix

// The strip of connected phones, and the card that adds one. At most one card is being renamed.
Flickable {
    id: root

    required property var phones // entries of the roster
    required property int activeId
    property PhoneCard renamingCard: null
    readonly property Item focusItem: Window.activeFocusItem

    signal activated(int id)
    signal renamed(int id, string name)
    signal addPhoneClicked()
    signal menuRequested(Item field, real sceneX, real sceneY)

    implicitHeight: 120
    contentWidth: cards.width
    contentHeight: height
    interactive: contentWidth > width
    boundsBehavior: Flickable.StopAtBounds
    clip: true

    // The card that takes the keyboard focus comes into view.
    onFocusItemChanged: {
        for (let item = focusItem; item !== null; item = item.parent) {
            if (item.parent === cards) {
                scrollTo(Math.min(item.x, Math.max(contentX, item.x + item.width - width)))
            }
        }
    }

    function scrollTo(x: real): void {
        contentX = Math.max(0, Math.min(x, contentWidth - width))
    }

    WheelHandler {
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        onWheel: event => root.scrollTo(root.contentX - event.angleDelta.x - event.angleDelta.y)
    }

    Row {
        id: cards

        y: 1
        spacing: 10

        // By index: a change of the list updates the cards instead of making them anew, which
        // would end a renaming.
        Repeater {
            model: root.phones.length

            PhoneCard {
                id: card

                required property int index

                entry: root.phones[index] ?? null
                active: entry !== null && entry.id === root.activeId
                onActivated: root.activated(entry.id)
                onRenamed: (id, name) => root.renamed(id, name)
                onMenuRequested: (field, x, y) => root.menuRequested(field, x, y)
                onEditingChanged: {
                    if (editing) {
                        root.renamingCard?.commitRename()
                        root.renamingCard = card
                    } else if (root.renamingCard === card) {
                        root.renamingCard = null
                    }
                }
            }
        }

        AddPhoneCard { onClicked: root.addPhoneClicked() }
    }
}
