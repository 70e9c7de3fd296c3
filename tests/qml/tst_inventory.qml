import QtQuick
import QtTest
import Pevrix

// Every control with its keys and what it does, and every figure and choice where it is shown.
WindowTestCase {
    id: test

    name: "Inventory"

    readonly property var roleNames: ({
        [Accessible.Button]: "button", [Accessible.CheckBox]: "switch", [Accessible.Link]: "link",
        [Accessible.PageTab]: "tab", [Accessible.RadioButton]: "choice"
    })

    readonly property var dialogs: ["settings", "language", "addPhone"]

    function titleOf(control) {
        return `${roleNames[control.Accessible.role]} ${control.Accessible.name}`
    }

    // The part of the window that Tab moves in, in the state that the row asks for.
    function arrange(row) {
        i18n.setLanguage("en")
        window.renamingCard?.cancelRename()
        for (const name of dialogs) {
            part(name)?.close()
        }
        controller.reset()
        controller.pairAddress = "10.0.0.5:8788"
        controller.pcName = controller.qrDataUrl = ""
        controller.firewallBlocked = updater.available = true
        updater.latestVersion = "1.2"
        updater.downloads = 0
        part("updateBar").dismissed = false
        for (const scope of [part("pairingView"), part("addPhone")].filter(item => item !== null)) {
            part("addressRow", scope).open = false
        }
        window.showNormal()
        window.requestActivate()
        tryVerify(() => window.active)
        if (row.live) {
            controller.connectPhones()
        }
        row.set?.()
        controller.calls = []
        outside.forget()
        const scope = row.dialog ? open(row.dialog, row.tab) : window.contentItem
        verify(waitForPolish(window))
        return scope
    }

    // Walks with Tab from wherever the focus is until it comes round.
    function walk() {
        const seen = []
        for (let i = 0; i < 60; ++i) {
            keyClick(Qt.Key_Tab)
            const item = window.activeFocusItem
            if (seen.length === 0 && item === window.contentItem) {
                wait(20) // the first keys may still go to the window that was there before
                continue
            }
            if (seen.includes(item)) {
                break
            }
            verify(item.visualFocus, `no focus ring: ${item}`)
            seen.push(item)
        }
        return seen
    }

    // Its role and name; the call that it makes, or what is so afterwards; the keys that it obeys beside
    // Enter and Space. In the order of the Tab key, and all of them unless the row has only some.
    function test_everyControl_data() {
        const bar = [
            ["button Settings", () => part("settings")?.shown],
            ["button Minimize", () => window.visibility === Window.Minimized],
            ["button Maximize", () => window.isMax],
            ["button Close", () => window.visibility === Window.Hidden],
            ["button Download", () => updater.downloads === 1],
            ["button Dismiss", () => !part("updateBar").visible]
        ]
        const closed = ["button Close", () => !dialogs.some(name => part(name)?.shown)]
        const tabs = [closed, ...["General", "Camera", "Status", "About"].map(
            (name, i) => [`tab ${name}`, () => part("settings").tab === i,
                          ["Right", "Left Right", "Left Right", "Left"][i]])]
        const help = ["button Can't scan?", () => button("Copy pairing link") !== undefined]
        const leadsTo = (title, page) => [title, () => outside.opened.join() === page]
        const speaks = (name, code) => [`choice ${name}`, () => i18n.language === code]
        const hint = () => {
            part("callHintPlace").due = true
            part("callHintPlace").done = controller.cameraRegistered = false
        }
        return [
            { tag: "pairing", controls: [
                ...bar, ["button Allow", "allowThroughFirewall"], help,
                leadsTo("link Get the app", "https://pevrix.example/app")] },
            { tag: "live", live: true, controls: [
                ...bar, ["button Pause camera", "toggleOutput"], ["button Record", "toggleRecording"],
                ["choice Kitchen phone", "setActive 1", "F2"],
                ["button Rename Kitchen phone", () => window.renamingCard?.phoneId === 1],
                ["choice Desk phone", "setActive 2", "F2"],
                ["button Rename Desk phone", () => window.renamingCard?.phoneId === 2],
                ["button Add phone", () => part("addPhone")?.shown]] },
            { tag: "general", dialog: "settings", controls: [
                ...tabs, ["choice System", "setThemeMode 0", "Right"],
                ["choice Light", "setThemeMode 1", "Left Right"], ["choice Dark", "setThemeMode 2", "Left"],
                ["button Language: English", () => part("language")?.shown && !part("settings").shown],
                ["switch Close to tray", () => !controller.minimizeToTray]] },
            { tag: "camera", dialog: "settings", tab: 1, controls: [
                ...tabs, ["button Unregister the camera", "unregisterCamera"],
                ["button Open the recordings folder", "openRecordingsFolder"],
                ["button Change the recordings folder", null], // opens a window of the system's
                ["button Regenerate the pairing code", "regeneratePairing"]] },
            { tag: "status", dialog: "settings", tab: 2, controls: tabs },
            { tag: "about", dialog: "settings", tab: 3, controls: [
                ...tabs, leadsTo("link pevrix.example", "https://pevrix.example")] },
            { tag: "language", dialog: "language", controls: [
                closed, speaks("System default", "auto"), speaks("English", "en"), speaks("Français", "fr"),
                speaks("Español", "es"), speaks("Deutsch", "de"), speaks("Italiano", "it"),
                speaks("Português", "pt"), speaks("Русский", "ru"), speaks("Türkçe", "tr"),
                speaks("中文 (简体)", "zh_CN"), speaks("日本語", "ja")] },
            { tag: "add phone", dialog: "addphone", controls: [closed, help] },
            { tag: "no camera", some: true, set: () => controller.port = 0, controls: [
                ["button Try again", "start"]] },
            { tag: "unregistered", some: true, controls: [["button Register", "registerCamera"]],
              set: () => controller.cameraRegistered = controller.firewallBlocked = false },
            { tag: "unregistered in the settings", some: true, dialog: "settings", tab: 1,
              set: () => controller.cameraRegistered = false,
              controls: [["button Register the camera", "registerCamera"]] },
            { tag: "help", some: true, set: () => part("addressRow").open = true, controls: [
                ["button Copy pairing link", "copyPairingLink"]] },
            { tag: "paused", some: true, live: true, set: () => controller.outputEnabled = false,
              controls: [["button Resume camera", "toggleOutput"]] },
            { tag: "recording", some: true, live: true, set: () => controller.recording = true,
              controls: [["button Stop recording", "toggleRecording"]] },
            { tag: "recording waits", some: true, set: () => controller.recording = true, controls: [
                ["button Stop recording", "toggleRecording"]] },
            { tag: "call hint", some: true, live: true, set: hint, controls: [
                ["button Register", "registerCamera"],
                ["button Dismiss the hint", () => part("callHintPlace").done]] }
        ]
    }

    function test_everyControl(row) {
        const scope = arrange(row)
        if (!row.some) {
            const seen = walk()
            compare(seen.length, controlsIn(scope).length, "Tab misses a control, or leaves the dialog")
            compare(seen.map(titleOf), row.controls.map(([title]) => title))
        }
        for (const [title, effect, keys] of row.controls) {
            for (const way of effect ? ["Return", "mouse", ...(keys?.split(" ") ?? [])] : []) {
                press(row, title, way, effect)
            }
        }
    }

    function press(row, title, way, effect) {
        const control = controlsIn(arrange(row)).find(item => titleOf(item) === title)
        control.forceActiveFocus(Qt.TabFocusReason)
        if (way === "mouse") {
            mouseClick(control)
        } else {
            keyClick(Qt[`Key_${way}`])
        }
        const told = `${title} by ${way}`
        if (way !== "mouse" && way !== "Return") {
            verify(window.activeFocusItem !== control, told)
        } else if (typeof effect === "string") {
            compare(controller.calls, [effect], told)
        } else {
            tryVerify(effect, 5000, told)
        }
    }

    function test_everyFigure_data() {
        const [code, address] = ["qrc:/assets/icons/app-icon-16.png", "10.9.8.7:8790"]
        return [
            { of: "phoneName", value: "Cat phone", live: true },
            { of: "appConnected", value: true, text: "In use", live: true },
            { of: "pcName", value: "CAT", text: "This PC: CAT" },
            { of: "pcName", value: "CAT", dialog: "settings", tab: 2 },
            { of: "pairAddress", value: address },
            { of: "pairAddress", value: address, dialog: "addphone" },
            { of: "qrDataUrl", value: code },
            { of: "qrDataUrl", value: code, dialog: "addphone" },
            { of: "port", value: 8790, dialog: "settings", tab: 2 },
            { of: "fps", value: 29, text: "29 fps · 4 ms", dialog: "settings", tab: 2 },
            { of: "decodeMs", value: 7, text: "30 fps · 7 ms", dialog: "settings", tab: 2 },
            { of: "usbAvailable", value: false, text: "Needs iTunes or the Apple Devices app",
              dialog: "settings", tab: 2 },
            { of: "recordingFolder", value: "/cats", dialog: "settings", tab: 1 },
            { of: "cameraRegistered", value: false, text: "Not registered", dialog: "settings", tab: 1 }
        ].map(row => Object.assign(row, { tag: `${row.of} ${row.dialog ?? ""}` }))
    }

    function test_everyFigure(row) {
        const scope = arrange(row)
        const text = row.text ?? row.value
        verify(!says(text, scope))
        controller[row.of] = row.value
        verify(says(text, scope))
    }

    function test_everyChoiceShowsWhatIsChosen_data() {
        return [
            { tag: "theme", dialog: "settings", set: () => controller.themeMode = 2,
              chosen: ["General", "Dark", "Close to tray"] },
            { tag: "tray", dialog: "settings", set: () => controller.minimizeToTray = false,
              chosen: ["General", "System"] },
            { tag: "phone", live: true, set: () => controller.setActive(2), chosen: ["Desk phone"] },
            { tag: "language", dialog: "language", set: () => i18n.setLanguage("de"), chosen: ["Deutsch"] }
        ]
    }

    function test_everyChoiceShowsWhatIsChosen(row) {
        compare(controlsIn(arrange(row)).filter(item => item.Accessible.checked)
                                        .map(item => item.Accessible.name), row.chosen)
    }

    function test_theStandInsHaveNothingThatTheProgramLacks() {
        const invented = (standIn, real) => Object.keys(standIn).filter(
                            name => !real.includes(name) && !name.endsWith("Changed"))
        verify(Object.keys(controller).includes("setActive"))
        compare(invented(controller, outside.membersOf("app")),
                ["calls", "reset", "connectPhones", "note"])
        compare(invented(updates, outside.membersOf("updater")), ["downloads"])
    }
}
