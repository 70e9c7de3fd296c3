import QtQuick
import QtTest
import Pevrix
import "qrc:/qml"

// The main window around a scripted controller, made anew for each test. Nothing moves by itself unless
// a test takes the capture mode away.
TestCase {
    id: test

    when: windowShown

    readonly property var controller: app
    readonly property var updates: updater
    property var window: null

    Component { id: mainComponent; Main { captureMode: true } }

    function init() {
        failOnWarning(/^(?!Failed to create Direct Composition)/)
        controller.reset()
        i18n.setLanguage("en")
        updater.available = false
        updater.downloads = 0
        window = createTemporaryObject(mainComponent, test)
        window.requestActivate()
        tryVerify(() => window.active)
    }

    function part(name, item = window.contentItem) {
        if (item.objectName === name) {
            return item
        }
        for (const child of item.children) {
            const found = part(name, child)
            if (found !== null) {
                return found
            }
        }
        return null
    }

    function open(view, tab = 0) {
        window.shotOpenView(view)
        const dialog = part({ settings: "settings", language: "language", addphone: "addPhone" }[view])
        tryCompare(dialog, "opacity", 1)
        if (tab > 0) {
            dialog.tab = tab
        }
        return dialog
    }

    // Every control below `item` that can be used now.
    function controlsIn(item, found = []) {
        for (const child of item.children) {
            if (child.visible && child.enabled) {
                if (child.visualFocus !== undefined && child.clicked) {
                    found.push(child)
                }
                controlsIn(child, found)
            }
        }
        return found
    }

    function button(name, scope = window.contentItem) {
        return controlsIn(scope).find(item => item.Accessible.name === name)
    }

    // What can be read now, and the addresses of pictures and links.
    function texts(item = window.contentItem) {
        return [...item.children].filter(child => child.visible).reduce(
                    (found, child) => found.concat(texts(child)),
                    [item.text, item.url].filter(text => text !== undefined).map(String))
    }

    function says(text, item = window.contentItem) {
        return texts(item).includes(String(text))
    }
}
