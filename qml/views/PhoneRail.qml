pragma ComponentBehavior: Bound

import QtQuick

// The strip of connected phones, and the card that adds one. At most one card is being renamed.
Flickable {
    id: root

    required property string videoState // of the active phone
    property PhoneCard renamingCard: null
    readonly property Item focusItem: Window.activeFocusItem

    signal addPhoneClicked()
    signal menuRequested(Item field, real sceneX, real sceneY)
    signal menuAsked(Item field) // by a key

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

        Repeater {
            model: PhoneModel { phones: App.phones }

            PhoneCard {
                id: card

                active: phoneId === App.activeId
                videoState: root.videoState
                onActivated: App.setActive(phoneId)
                onRenamed: name => App.renamePhone(phoneId, name)
                onMenuRequested: (field, x, y) => root.menuRequested(field, x, y)
                onMenuAsked: field => root.menuAsked(field)
                onEditingChanged: {
                    if (editing) {
                        root.renamingCard?.commitRename()
                        root.renamingCard = card
                    } else if (root.renamingCard === card) {
                        root.renamingCard = null
                    }
                }
            }

            // Before its field loses the focus, which would commit the name.
            onItemRemoved: (index, item) => {
                if (item === root.renamingCard) {
                    root.renamingCard.cancelRename()
                }
            }
        }

        AddPhoneCard { onClicked: root.addPhoneClicked() }
    }
}
