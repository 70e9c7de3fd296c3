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

    onPhonesChanged: followPhones()
    Component.onCompleted: followPhones()

    // A card lasts as long as its phone stays: making all anew would end a renaming. Phones keep
    // their order.
    function followPhones(): void {
        for (let i = ids.count - 1; i >= 0; --i) {
            const id = ids.get(i).phoneId
            if (!phones.some(phone => phone.id === id)) {
                if (renamingCard?.phoneId === id) {
                    renamingCard.cancelRename()
                }
                ids.remove(i)
            }
        }
        for (let i = 0; i < phones.length; ++i) {
            if (i >= ids.count || ids.get(i).phoneId !== phones[i].id) {
                ids.insert(i, { phoneId: phones[i].id })
            }
        }
    }

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

        Repeater {
            model: ListModel { id: ids }

            PhoneCard {
                id: card

                entry: root.phones.find(phone => phone.id === phoneId) ?? null
                active: phoneId === root.activeId
                onActivated: root.activated(phoneId)
                onRenamed: name => root.renamed(phoneId, name)
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
