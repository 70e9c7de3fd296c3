import QtQuick
import QtTest
import Pevrix
import "qrc:/qml"

// The shared controls alone, without the main window.
Item {
    width: 100
    height: 100

    Window {
        id: window

        width: 480
        height: 640
        visible: true

        Modal {
            id: modal

            property alias fill: fill.height

            title: "Title"

            Item {
                id: fill

                width: parent.width
            }

            AppButton { id: last; text: "Last" }
        }

        TextInput { id: field; text: "a name" }

        EditMenu { id: menu }

        SignalSpy { id: clicks; target: last; signalName: "clicked" }
    }

    TestCase {
        name: "Controls"
        when: windowShown

        function initTestCase() {
            Motion.still = true
        }

        function init() {
            failOnWarning(/^(?!Failed to create Direct Composition)/)
            window.requestActivate()
            tryVerify(() => window.active)
            window.height = 640
        }

        function cleanup() {
            modal.close()
            menu.close()
            tryVerify(() => !modal.visible)
        }

        function test_buttonVariants() {
            const danger = Qt.darker(Theme.red, 1.1)
            for (const [variant, border, rest, hover] of [
                     ["primary", 0, Theme.accent, Qt.darker(Theme.accent, 1.12)],
                     ["neutral", 1, Theme.raised, Theme.raisedHover],
                     ["outline", 1, Qt.alpha(Theme.accent, 0), Theme.accent],
                     ["danger", 1, Qt.alpha(danger, 0), danger]]) {
                last.variant = variant
                verify(Qt.colorEqual(last.fill(false), rest))
                verify(Qt.colorEqual(last.fill(true), hover))
                compare(last.background.border.width, border)
            }
        }

        function test_buttonHugsItsLabelAndObeysKeysOnlyWhileEnabled() {
            last.minWidth = 0
            const hugging = last.implicitWidth
            verify(hugging > 2 * Theme.btnPadX)
            last.minWidth = 200
            compare(last.implicitWidth, 200)
            modal.fill = 10
            modal.open()
            verify(waitForPolish(window))
            last.forceActiveFocus(Qt.TabFocusReason)
            clicks.clear()
            keyClick(Qt.Key_Return)
            keyClick(Qt.Key_Space)
            mouseClick(last)
            compare(clicks.count, 3)
            last.enabled = false
            mouseClick(last)
            compare(clicks.count, 3)
            compare(last.opacity, 0.45)
            last.enabled = true
        }

        // Chrome is 76, the gap before the button 18, the button 34: 128 besides the filling.
        function test_modalIsAsHighAsItsBodyWithinTheWindow_data() {
            return [
                { tag: "just fits", windowHeight: 348, fill: 172, height: 300, scrolls: false },
                { tag: "one pixel more", windowHeight: 347, fill: 172, height: 299, scrolls: false },
                { tag: "two pixels more", windowHeight: 346, fill: 172, height: 298, scrolls: true },
                { tag: "lowest", windowHeight: 180, fill: 500, height: 160, scrolls: true },
                { tag: "its own limit", windowHeight: 900, fill: 900, height: 620, scrolls: true }
            ]
        }

        function test_modalIsAsHighAsItsBodyWithinTheWindow(row) {
            window.height = row.windowHeight
            modal.fill = row.fill
            modal.open()
            tryCompare(modal, "opacity", 1)
            const scroller = findChild(modal, "scroller")
            tryCompare(findChild(modal, "card"), "height", row.height)
            compare(scroller.interactive, row.scrolls)
            // What takes the focus comes into view.
            last.forceActiveFocus(Qt.TabFocusReason)
            const bottom = last.mapToItem(scroller, 0, last.height).y
            verify(bottom <= scroller.height, `${bottom} of ${scroller.height}`)
        }

        function test_modalClosesByEscapeBackdropAndButtonButNotByItsCard() {
            modal.fill = 10
            const card = findChild(modal, "card")
            const ways = [
                () => keyClick(Qt.Key_Escape),
                () => mouseClick(modal, 5, 5),
                () => mouseClick(card, card.width - 33, 32)
            ]
            for (const close of ways) {
                field.forceActiveFocus()
                modal.open()
                tryCompare(modal, "opacity", 1)
                verify(!field.activeFocus)
                mouseClick(card, 5, 5)
                verify(modal.shown)
                close()
                verify(!modal.shown)
                verify(field.activeFocus) // back where it was
            }
        }

        function test_editMenuStaysInsideTheWindow() {
            const panel = findChild(menu, "panel")
            for (const [x, y, left, top] of [[100, 50, 100, 50], [0, 1, 4, 4], [478, 638, 300, 515]]) {
                menu.openFor(field, x, y)
                compare([panel.x, panel.y], [left, top])
                verify(field.activeFocus)
                mouseClick(menu, 240, 300) // outside
                verify(!menu.shown)
            }
        }

        function test_editMenuOffersWhatTheFieldCanDo() {
            const actives = () => ["cut", "copy", "paste", "selectAll"].map(
                                name => findChild(menu, name).active).join()
            field.text = ""
            menu.openFor(field, 9, 9)
            compare(actives(), `false,false,${field.canPaste},false`)
            field.text = "a name"
            field.selectAll()
            compare(actives(), `true,true,${field.canPaste},true`)
            field.readOnly = true
            field.selectAll()
            compare(actives(), "false,true,false,true")
            mouseClick(findChild(menu, "cut"))
            verify(menu.shown)
            field.readOnly = false
            field.selectAll()
            mouseClick(findChild(menu, "cut"))
            compare(field.text, "")
            verify(!menu.shown)
            menu.openFor(field, 9, 9)
            tryVerify(() => findChild(menu, "paste").active)
            mouseClick(findChild(menu, "paste"))
            compare(field.text, "a name")
        }
    }
}
