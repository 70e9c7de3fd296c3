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
        "pairing", "no-camera", "no-network", "firewall", "unregistered", "cant-scan", "update",
        "live", "waiting", "stalled", "paused", "call-hint", "recording", "recording-saved",
        "recording-ended", "recording-refused", "recording-waits", "edit-menu", "add-phone",
        "settings-general", "settings-camera", "settings-camera-unregistered", "settings-camera-linux",
        "register-open-folder", "settings-status", "settings-status-linux", "settings-about",
        "regenerate", "regenerated", "language",
        "focus-pairing", "focus-live", "focus-settings",
        "contrast-pairing", "contrast-live", "contrast-settings"
    ]
    readonly property list<string> withPhones: [
        "live", "waiting", "stalled", "paused", "call-hint", "recording", "recording-saved",
        "recording-ended", "recording-refused", "edit-menu", "add-phone", "focus-live", "contrast-live"
    ]
    readonly property string recording: "/home/user/Videos/Pevrix/Pevrix_20260115_093012.mp4"

    function arrange(view: string): void {
        for (const dialog of ["settings", "language", "addPhone", "registration", "editMenu"]) {
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
        if (withPhones.includes(view)) {
            app.connectPhones()
        }
        hideHints()
        // Without a camera nothing listens, and there is no code to scan.
        app.qrDataUrl = view === "no-camera" ? "" : qrDataUrl
        app.pairAddress = view === "no-camera" ? "" : view === "no-network" ? "No LAN address found"
                                                                            : pairAddress
        switch (view) {
        case "no-camera": app.port = 0; break
        case "firewall": app.firewallBlocked = true; break
        case "unregistered":
        case "settings-camera-unregistered": app.cameraRegistered = false; break
        case "cant-scan": find(window.contentItem, "addressRow").open = true; break
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
        case "waiting": app.videoWaiting = true; break
        case "stalled": app.videoStalled = true; break
        case "paused": app.outputEnabled = false; break
        case "call-hint": find(window.contentItem, "callHintPlace").due = true; break
        case "recording-saved": app.recordingEnded("saved", true, recording, 187); break
        case "recording-ended": app.recordingEnded("diskFull", true, recording, 187); break
        case "recording-refused": app.recordingEnded("folderGone", false, recording, 0); break
        case "recording-waits":
            app.recording = true
            window.recSeconds = 187
            break
        case "settings-camera-linux":
        case "settings-status-linux":
            app.cameraNeedsRegistration = app.usbAvailable = false
            app.platform = "linux"
            break
        case "recording":
            app.recording = app.appConnected = true
            window.recSeconds = 187
            break
        case "edit-menu": openEditMenu(); break
        case "add-phone": window.shotOpenView("addphone"); break
        case "register-open-folder":
            app.cameraRegistered = false
            window.askToRegister("D:\\Tools\\Pevrix")
            break
        case "language": window.shotOpenView("language"); break
        }
        openTab(view.startsWith("regenerate") ? "settings-camera" : view)
        if (view.startsWith("regenerate")) {
            app.trustsPhones = view === "regenerate"
            find(window.contentItem, "regenerate").click()
        }
    }

    function openTab(view: string): void {
        const tab = ["general", "camera", "status", "about"].indexOf(view.split("-")[1])
        if (view.startsWith("settings-") && tab >= 0) {
            openSettings(tab)
        }
    }

    // What appeared for the view before.
    function hideHints(): void {
        const hint = find(window.contentItem, "callHintPlace")
        if (hint !== null) {
            hint.due = hint.done = false
        }
        find(window.contentItem, "addressRow").open = false
        const notice = find(window.contentItem, "notice")
        if (notice !== null) {
            notice.shown = false
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
