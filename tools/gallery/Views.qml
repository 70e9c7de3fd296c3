import QtQuick

// Brings the window into the state of each view of the gallery.
QtObject {
    id: root

    required property var window
    required property var app
    required property var updater

    property string qrDataUrl
    property string pairAddress

    Component.onCompleted: {
        qrDataUrl = app.qrDataUrl
        pairAddress = app.pairAddress
    }

    readonly property list<string> names: [
        "pairing", "no-camera", "firewall", "update", "live", "paused", "recording", "edit-menu", "add-phone",
        "settings-general", "settings-camera", "settings-status", "settings-about", "language",
        "focus-pairing", "focus-live", "focus-settings",
        "contrast-pairing", "contrast-live", "contrast-settings"
    ]

    function arrange(view: string): void {
        for (const dialog of ["settings", "language", "addPhone", "editMenu"]) {
            find(window.contentItem, dialog)?.close()
        }
        window.renamingCard?.cancelRename()
        window.contrast = view.startsWith("contrast")
        focusTimer.stop()
        window.contentItem.forceActiveFocus()
        updater.available = view === "update"
        updater.latestVersion = "1.2"
        const themeMode = app.themeMode
        app.reset()
        app.themeMode = themeMode
        if (["live", "paused", "recording", "edit-menu", "add-phone", "focus-live",
             "contrast-live"].includes(view)) {
            app.connectPhones()
        }
        // Without a camera nothing listens, and there is no code to scan.
        app.qrDataUrl = view === "no-camera" ? "" : qrDataUrl
        app.pairAddress = view === "no-camera" ? "" : pairAddress
        switch (view) {
        case "no-camera": app.port = 0; break
        case "firewall": app.firewallBlocked = true; break
        case "live": app.appConnected = true; break
        case "focus-pairing": focus("settingsButton"); break
        case "focus-live": focus("phoneCard"); break
        case "focus-settings":
            openSettings(1)
            focus("changeFolder")
            break
        case "contrast-pairing": app.firewallBlocked = updater.available = true; break
        case "contrast-live":
            app.recording = app.appConnected = true
            window.recSeconds = 187
            break
        case "contrast-settings": openSettings(0); break
        case "paused": app.outputEnabled = false; break
        case "recording":
            app.recording = app.appConnected = true
            window.recSeconds = 187
            break
        case "edit-menu": openEditMenu(); break
        case "add-phone": window.shotOpenView("addphone"); break
        case "language": window.shotOpenView("language"); break
        }
        const tab = ["general", "camera", "status", "about"].indexOf(view.replace("settings-", ""))
        if (tab >= 0) {
            openSettings(tab)
        }
    }

    function openSettings(tab: int): void {
        window.shotOpenView("settings")
        find(window.contentItem, "settings").tab = tab
    }

    property string focusName
    property Timer focusTimer: Timer { // a dialog takes the focus when it appears
        interval: 300
        onTriggered: root.find(root.window.contentItem, root.focusName)
                             ?.forceActiveFocus(Qt.TabFocusReason)
    }

    // As with the Tab key.
    function focus(name: string): void {
        window.requestActivate()
        focusName = name
        focusTimer.restart()
    }

    function openEditMenu(): void {
        const card = find(window.contentItem, "phoneCard")
        card.beginRename()
        const point = card.mapToItem(null, card.width - 14, 88)
        card.menuRequested(find(card, "nameField"), point.x, point.y)
    }

    function find(item: Item, name: string): Item {
        if (item.objectName === name) {
            return item
        }
        for (const child of item.children) {
            const found = find(child, name)
            if (found !== null) {
                return found
            }
        }
        return null
    }
}
