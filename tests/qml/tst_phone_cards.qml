import QtQuick

// The cards of the connected phones, and renaming.
WindowTestCase {
    name: "PhoneCards"

    function cards() {
        controller.connectPhones()
        controller.calls = []
        waitForRendering(window.contentItem)
        return controlsIn(window.contentItem).filter(item => item.objectName === "phoneCard")
    }

    function test_aDoubleClickRenames() {
        const [first] = cards()
        mouseDoubleClickSequence(first, 50, 40)
        compare(window.renamingCard, first)
    }

    function test_renamingEndsAsItShould_data() {
        const other = "renamePhone 1 new"
        return [
            { tag: "Enter", end: () => keyClick(Qt.Key_Return), calls: [other] },
            { tag: "Escape", end: () => keyClick(Qt.Key_Escape), calls: [] },
            { tag: "Tab", end: () => keyClick(Qt.Key_Tab), calls: [other] },
            { tag: "second card", end: (_, second) => second.beginRename(), calls: [other], goesOn: true },
            { tag: "click elsewhere, which does no more", end: (_, second) => mouseClick(second, 50, 40),
              calls: [other] },
            { tag: "click on the card", end: first => mouseClick(first, 50, 40), calls: [], goesOn: true },
            { tag: "other phone leaves", end: () => controller.phones = controller.phones.slice(0, 1),
              calls: [], goesOn: true },
            { tag: "phone leaves", end: () => controller.phones = controller.phones.slice(1), calls: [] },
            { tag: "all phones leave", end: () => controller.phones = [], calls: [] }
        ]
    }

    function test_renamingEndsAsItShould(row) {
        const [first, second] = cards()
        first.forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_F2)
        compare(window.renamingCard, first)
        compare(part("nameField").selectedText, "Kitchen phone")
        "new".split("").forEach(letter => keyClick(letter))
        row.end(first, second)
        compare(controller.calls, row.calls)
        compare(window.renamingCard !== null, row.goesOn ?? false)
    }

    function test_editMenuOfTheNameFieldLeavesTheRenamingOpen() {
        const [first] = cards()
        first.beginRename()
        const field = part("nameField")
        mouseClick(field, 5, 5, Qt.RightButton)
        const menu = part("editMenu")
        verify(menu.shown)
        keyClick(Qt.Key_Escape)
        verify(!menu.shown)
        compare(window.renamingCard, first)
        compare(controller.calls, [])
    }

    function test_aNameThatIsCutShowsItselfWholeOnHover() {
        const name = "A phone whose <b>name</b> is far too long for its card"
        const [card] = cards()
        controller.renamePhone(1, name)
        const whole = (item = window.contentItem) => (item.text === name && item.truncated === false
                          && item.visible && item.parent.width < 320 && item.textFormat === Text.PlainText)
                      || [...item.children].some(child => whole(child))
        verify(!whole())
        mouseMove(card, 50, 86)
        tryVerify(() => whole())
        mouseMove(window.contentItem, 1, 1)
        tryVerify(() => !whole())
    }
}
