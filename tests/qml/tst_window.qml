import QtQuick
import QtTest
import Pevrix
import "qrc:/gallery"
import "qrc:/qml"

WindowTestCase {
    id: test

    name: "Window"

    Component { id: viewsComponent; Views { app: test.controller; updater: test.updates } }

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

    readonly property var roleNames: ({
        [Accessible.Button]: "button", [Accessible.CheckBox]: "switch", [Accessible.Link]: "link",
        [Accessible.PageTab]: "tab", [Accessible.RadioButton]: "choice"
    })

    // The part of the window that Tab moves in.
    function arrange(row) {
        controller.firewallBlocked = controller.outputEnabled = updater.available = true
        controller.recording = part("updateBar").dismissed = false
        controller.pairAddress = "10.0.0.5:8788"
        updater.latestVersion = "1.2"
        if (row.live && !controller.phoneConnected) {
            controller.connectPhones()
        }
        if (!row.dialog) {
            return window.contentItem
        }
        const dialog = open(row.dialog)
        if (row.tab !== undefined) {
            dialog.tab = row.tab
        }
        return dialog
    }

    // Every control in the order of the Tab key: its role, its name, and after a colon the keys that it
    // obeys beside Enter and Space.
    function test_everyControl_data() {
        const bar = ["button Settings", "button Minimize", "button Maximize", "button Close",
                     "button Download", "button Dismiss"]
        const tabs = ["button Close", "tab General: Right", "tab Camera: Left Right",
                      "tab Status: Left Right", "tab About: Left"]
        return [
            { tag: "pairing", controls: [
                ...bar, "button Allow", "button Can't scan?", "link Get the app"] },
            { tag: "live", live: true, controls: [
                ...bar, "button Pause camera", "button Record", "choice Kitchen phone: F2",
                "button Rename Kitchen phone", "choice Desk phone: F2", "button Rename Desk phone",
                "button Add phone"] },
            { tag: "general", dialog: "settings", tab: 0, controls: [
                ...tabs, "choice System: Right", "choice Light: Left Right", "choice Dark: Left",
                "button Language: English", "switch Close to tray"] },
            { tag: "camera", dialog: "settings", tab: 1, controls: [
                ...tabs, "button Unregister the camera", "button Open the recordings folder",
                "button Change the recordings folder", "button Regenerate the pairing code"] },
            { tag: "status", dialog: "settings", tab: 2, controls: tabs },
            { tag: "about", dialog: "settings", tab: 3, controls: [...tabs, "link pevrix.example"] },
            { tag: "language", dialog: "language", controls: [
                "button Close", "choice System default", "choice English", "choice Français",
                "choice Español", "choice Deutsch", "choice Italiano", "choice Português",
                "choice Русский", "choice Türkçe", "choice 中文 (简体)", "choice 日本語"] },
            { tag: "add phone", dialog: "addphone", controls: ["button Close", "button Can't scan?"] }
        ]
    }

    function test_everyControl(row) {
        const scope = arrange(row)
        const seen = walk()
        compare(seen.length, controlsIn(scope).length, "Tab misses a control, or leaves the dialog")
        compare(seen.map(item => `${roleNames[item.Accessible.role]} ${item.Accessible.name}`),
                row.controls.map(text => text.replace(/: [FLR].*/, "")))
        for (const text of row.controls) {
            const [, name, keys] = /^[a-z]+ (.*?)(?:: ([FLR].*))?$/.exec(text)
            for (const key of ["Return", "Space", ...(keys?.split(" ") ?? [])]) {
                tryKey(row, name, key)
            }
        }
    }

    function tryKey(row, name, key) {
        if (name.startsWith("Change")) {
            return // opens a window of the system's
        }
        // The key before may have closed the dialog, hidden the window or changed the language.
        i18n.setLanguage("en")
        window.showNormal()
        window.requestActivate()
        tryVerify(() => window.active)
        verify(waitForRendering(window.contentItem))
        const control = controlsIn(arrange(row)).find(item => item.Accessible.name === name)
        let clicks = 0
        control.clicked.connect(() => ++clicks)
        control.forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt[`Key_${key}`])
        verify(["Return", "Space"].includes(key) ? clicks === 1 : window.activeFocusItem !== control,
               `${name} and ${key}`)
        window.renamingCard?.cancelRename()
        if (!row.dialog) {
            closeDialogs()
        }
    }

    function closeDialogs() {
        for (const name of ["settings", "language", "addPhone"]) {
            part(name)?.close()
        }
    }

    function test_aScreenReaderTogglesAndHearsWhatHappens() {
        open("settings")
        const toggle = controlsIn(part("settings")).find(item => item.Accessible.checkable
                                                         && item.Accessible.name === "Close to tray")
        verify(screenReader.toggle(toggle))
        verify(!controller.minimizeToTray)
        screenReader.forget()
        controller.connectPhones()
        controller.toggleOutput()
        controller.recording = true
        controller.phones = controller.phones.slice(1)
        compare(screenReader.heard, [
            "Phone connected: Kitchen phone", "Phone connected: Desk phone", "The camera is live",
            "The camera is paused", "Recording", "Phone disconnected: Kitchen phone"])
        screenReader.forget()
        controller.recording = false
        tryVerify(() => screenReader.heard.join() === "Recording saved")
    }

    function contrast(a, b) {
        const part = x => x <= 0.03928 ? x / 12.92 : Math.pow((x + 0.055) / 1.055, 2.4)
        const light = c => 0.2126 * part(c.r) + 0.7152 * part(c.g) + 0.0722 * part(c.b) + 0.05
        const [x, y] = [light(a), light(b)]
        return Math.max(x, y) / Math.min(x, y)
    }

    function test_ringsEdgesAndTextsStandOut() {
        const grounds = ["bg", "surface", "raised", "raisedHover", "accentSoft", "track", "focusHalo"]
        const texts = [["textc", grounds], ["muted", grounds], ["accentStrong", ["bg", "accentSoft"]],
                       ["redInk", ["red"]]]
        for (const strong of [false, true]) {
            for (const mode of [1, 2]) {
                window.contrast = strong
                controller.themeMode = mode
                for (const ground of grounds) {
                    verify(contrast(Theme.focus, Theme[ground]) >= 3, `ring on ${ground}`)
                }
                for (const [ink, papers] of texts) {
                    for (const paper of papers) {
                        verify(contrast(Theme[ink], Theme[paper]) >= (strong ? 7 : 4.5),
                               `${ink} on ${paper}`)
                    }
                }
            }
        }
    }

    function test_viewFollowsThePhonesAndTheirFramesAreShown() {
        const live = part("liveView")
        const pairing = part("pairingView")
        verify(pairing.visible && !live.visible)
        controller.connectPhones()
        verify(live.visible && !pairing.visible)
        let image = null
        verify(live.grabToImage(result => image = result.image, Qt.size(64, 36)))
        tryVerify(() => image !== null)
        controller.frameReady(image)
        compare(part("preview").frameSize, Qt.size(64, 36))
        controller.phoneConnected = false
        verify(pairing.visible && !live.visible)
    }

    // A control that was clicked must not be used by a key once nobody sees it any more.
    function test_aHiddenViewGetsNoKeys() {
        controller.connectPhones()
        mouseClick(part("outputChip"))
        controller.firewallBlocked = true
        controller.phoneConnected = false
        controller.calls = []
        keyClick(Qt.Key_Space)
        mouseClick(controlsIn(part("pairingView")).find(item => item.text === "Allow"))
        controller.firewallBlocked = false
        keyClick(Qt.Key_Space)
        compare(controller.calls, ["allowThroughFirewall"])
    }

    function test_recordButton_data() {
        return [
            { tag: "no video", live: false, output: true, recording: false, enabled: false },
            { tag: "paused", live: true, output: false, recording: false, enabled: false },
            { tag: "live", live: true, output: true, recording: false, enabled: true },
            { tag: "recording though paused", live: false, output: false, recording: true, enabled: true }
        ]
    }

    function test_recordButton(row) {
        controller.connectPhones()
        controller.live = row.live
        controller.outputEnabled = row.output
        controller.recording = row.recording
        const button = part("recordButton")
        compare(button.enabled, row.enabled)
        mouseClick(button)
        compare(controller.calls.includes("toggleRecording"), row.enabled)
    }

    function test_recordingClockRunsFromZero() {
        controller.recording = true
        compare(window.recClock, "0:00")
        tryVerify(() => window.recSeconds > 0)
        window.recSeconds = 187
        compare(window.recClock, "3:07")
        controller.recording = false
        compare(window.recSeconds, 0)
    }

    function test_updateBarIsDismissedForTheRun() {
        const bar = part("updateBar")
        compare(bar.height, 0)
        updater.latestVersion = "1.2"
        updater.available = true
        compare(bar.height, 36)
        const [download, dismiss] = controlsIn(bar)
        mouseClick(download)
        compare(updater.downloads, 1)
        mouseClick(dismiss)
        verify(!bar.visible)
        updater.available = false
        updater.available = true
        verify(!bar.visible)
    }

    function test_themeFollowsTheSystemTheSettingAndAForcedOne() {
        verify(Theme.dark)
        controller.osDark = false
        verify(!Theme.dark)
        controller.themeMode = 2
        verify(Theme.dark)
        window.shotSetTheme(1)
        verify(!Theme.dark)
        compare(controller.themeMode, 2)
        controller.themeMode = 0
        compare(window.themeMode, 1)
    }

    function test_captureModeIsASquareCardWithoutMargin() {
        compare([window.shadowMargin, window.cardRadius], [16, 12])
        window.captureMode = true
        compare([window.shadowMargin, window.cardRadius], [0, 0])
    }

    function test_aMaximisedWindowIsDraggedOutUnderThePointer() {
        window.width = 600
        window.toggleMaximized()
        tryVerify(() => window.isMax && window.contentItem.width > 600)
        compare([window.shadowMargin, window.cardRadius], [0, 0])
        const bar = window.width - 2
        mousePress(window.contentItem, bar / 2, 20)
        mouseMove(window.contentItem, bar / 2 + 4, 20)
        verify(window.isMax)
        mouseMove(window.contentItem, bar / 2 + 5, 20)
        tryVerify(() => !window.isMax)
        compare(window.width, 600)
        // The pointer was at (bar / 2 + 5, 20), the bar at (1, 1).
        compare(window.x, Math.round(bar / 2 + 5 - 16 - (bar / 2 + 4) / bar * (600 - 32)))
        compare(window.y, 20 - 19 - 16)
        mouseRelease(window.contentItem, bar / 2, 20)
        tryVerify(() => !window._moving)
    }

    function test_closingHidesOnlyWithTheTray_data() {
        return [
            { tag: "tray", tray: true, setting: true, accepted: false, visibility: Window.Hidden },
            { tag: "no tray", tray: false, setting: true, accepted: false, visibility: Window.Minimized },
            { tag: "switched off", tray: true, setting: false, accepted: true, visibility: Window.Hidden }
        ]
    }

    function test_closingHidesOnlyWithTheTray(row) {
        window.trayAvailable = row.tray
        controller.minimizeToTray = row.setting
        if (row.setting) {
            window.closeOrHide()
            compare(window.visibility, row.visibility)
            window.showNormal()
        }
        let accepted = null
        window.closing.connect(close => accepted = close.accepted)
        window.close()
        compare([accepted, window.visibility], [row.accepted, row.visibility])
    }

    function test_settingsOpenOnTheFirstTabAndWriteThrough() {
        const settings = open("settings")
        const controls = () => controlsIn(settings)
        const press = name => mouseClick(controls().find(item => item.Accessible.name === name))
        press("Dark")
        compare(window.themeMode, 2)
        press("Camera")
        compare(settings.tab, 1)
        press("Regenerate the pairing code")
        verify(controller.calls.includes("regeneratePairing"))
        settings.close()
        tryVerify(() => !settings.visible)
        open("settings")
        compare(settings.tab, 0)
    }

    function test_languageChangesWhileTheProgramRuns() {
        const name = () => window.langList[0].name
        compare(name(), "System default")
        i18n.setLanguage("ja")
        verify(name() !== "System default")
        compare(window.nameOfLanguage(i18n.language), "日本語")
        i18n.setLanguage("en")
        compare(name(), "System default")
        compare(window.nameOfLanguage("xx"), "xx")
    }

    function cutTexts(item) {
        // A path may be cut in its middle.
        const cut = item.text !== undefined && item.truncated && item.elide !== Text.ElideMiddle
        return [...item.children].filter(child => child.visible)
                                 .reduce((found, child) => found.concat(cutTexts(child)),
                                         cut ? [item.text] : [])
    }

    function test_noTextIsCutInAnyLanguage_data() {
        return Languages.list.filter(language => language.code !== "auto").map(
                    language => ({ tag: language.code }))
    }

    function test_noTextIsCutInAnyLanguage(row) {
        i18n.setLanguage(row.tag)
        const views = createTemporaryObject(viewsComponent, test, { window: window })
        for (const name of views.names) {
            views.arrange(name)
            for (const dialog of ["settings", "language", "addPhone"]) {
                tryVerify(() => part(dialog)?.shown !== true || part(dialog).opacity === 1)
            }
            for (const well of [true, false]) {
                controller.cameraRegistered = controller.usbAvailable = well
                verify(waitForPolish(window))
                compare(cutTexts(window.contentItem), [], name)
            }
        }
    }
}
