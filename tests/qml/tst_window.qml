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
            if (seen.includes(item)) {
                break
            }
            verify(item.visualFocus, `no focus ring: ${item}`)
            seen.push(item)
        }
        return seen
    }

    function checkTabOrder(scope) {
        const controls = controlsIn(scope)
        const seen = walk()
        for (const control of controls) {
            verify(seen.includes(control), `Tab misses "${control.Accessible.name}"`)
        }
        compare(seen.length, controls.length, "Tab leaves the dialog")
        for (const item of seen) {
            verify(item.Accessible.role !== Accessible.NoRole, item)
            verify(item.Accessible.name !== "", item)
        }
        compare(new Set(seen.map(item => item.Accessible.name + item.Accessible.role)).size,
                seen.length, "two controls of one name")
    }

    function test_tabReachesEveryControlWhichHasARoleAndAName_data() {
        return [
            { tag: "pairing" },
            { tag: "live" },
            { tag: "general", dialog: "settings", tab: 0 },
            { tag: "camera", dialog: "settings", tab: 1 },
            { tag: "status", dialog: "settings", tab: 2 },
            { tag: "about", dialog: "settings", tab: 3 },
            { tag: "language", dialog: "language" },
            { tag: "add phone", dialog: "addphone" }
        ]
    }

    function test_tabReachesEveryControlWhichHasARoleAndAName(row) {
        controller.firewallBlocked = updater.available = true
        updater.latestVersion = "1.2"
        if (row.tag === "live") {
            controller.connectPhones()
        }
        let scope = window.contentItem
        if (row.dialog) {
            scope = open(row.dialog)
            if (row.tab !== undefined) {
                scope.tab = row.tab
            }
        }
        checkTabOrder(scope)
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
        press("Regenerate")
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
