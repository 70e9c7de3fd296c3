import QtQuick
import QtTest
import Pevrix
import "qrc:/gallery"
import "qrc:/qml"

WindowTestCase {
    id: test

    name: "Window"

    Component { id: viewsComponent; Views { app: test.controller; updater: test.updates } }

    function test_aScreenReaderTogglesAndHearsWhatHappens() {
        verify(outside.toggle(button("Close to tray", open("settings"))))
        verify(!controller.minimizeToTray)
        outside.forget()
        controller.connectPhones()
        controller.videoStalled = true
        controller.videoStalled = false
        controller.toggleOutput()
        controller.recording = true
        controller.phones = controller.phones.slice(1)
        controller.recording = false
        controller.recordingEnded("saved", true, "/videos/a.mp4", 7)
        compare(outside.heard, [
            "Phone connected: Kitchen phone", "Phone connected: Desk phone", "The camera is live",
            "Phone paused (no video)", "The camera is live", "The camera is paused", "Recording",
            "Phone disconnected: Kitchen phone", "Recording saved. a.mp4 · 0:07"])
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

    function test_viewFollowsThePhones() {
        for (const connected of [false, true, false]) {
            controller.phoneConnected = connected
            compare([part("liveView").visible, part("pairingView").visible], [connected, !connected])
        }
    }

    // A control that was clicked must not be used by a key once nobody sees it any more.
    function test_aHiddenViewGetsNoKeys() {
        controller.connectPhones()
        mouseClick(part("outputChip"))
        controller.firewallBlocked = true
        controller.phoneConnected = false
        controller.calls = []
        keyClick(Qt.Key_Space)
        mouseClick(button("Allow"))
        controller.firewallBlocked = false
        keyClick(Qt.Key_Space)
        compare(controller.calls, ["allowThroughFirewall"])
    }

    function test_recordButtonCanAlwaysStopAndStartOnlyWhatFlows() {
        controller.connectPhones()
        for (const [live, output, recording, enabled] of [
                 [false, true, false, false], [true, false, false, false], [true, true, false, true],
                 [false, true, true, true], [true, false, true, true]]) {
            controller.live = live
            controller.outputEnabled = output
            controller.recording = recording
            compare(part("recordButton").enabled, enabled, `${live} ${output} ${recording}`)
        }
    }

    function test_recordingClockRunsFromZero() {
        controller.recording = true
        compare(window.recClock, "0:00")
        tryVerify(() => window.recSeconds > 0)
        window.recSeconds = 187
        compare(window.recClock, "3:07")
        controller.connectPhones()
        verify(says("3:07"))
        controller.recording = false
        compare(window.recSeconds, 0)
    }

    function test_updateBarIsDismissedForTheRun() {
        const bar = part("updateBar")
        compare(bar.height, 0)
        updater.latestVersion = "1.2"
        updater.available = true
        compare(bar.height, 36)
        verify(says("Pevrix 1.2 is available."))
        mouseClick(button("Dismiss", bar))
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

    function test_aMaximisedWindowIsDraggedOutUnderThePointer() {
        window.captureMode = false
        compare([window.shadowMargin, window.cardRadius], [16, 12])
        window.width = 600
        mouseClick(button("Maximize"))
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

    function test_closingHidesOnlyWithTheTray() {
        let accepted = null
        window.closing.connect(close => accepted = close.accepted)
        for (const [tray, setting, visibility] of [[true, true, Window.Hidden],
                                                   [false, true, Window.Minimized],
                                                   [true, false, Window.Hidden]]) {
            window.trayAvailable = tray
            controller.minimizeToTray = setting
            for (const close of setting ? [window.closeOrHide, window.close] : [window.close]) {
                window.showNormal()
                close()
                compare(window.visibility, visibility)
            }
            compare(accepted, !setting)
        }
    }

    function test_settingsOpenOnTheFirstTab() {
        const settings = open("settings", 1)
        settings.close()
        tryVerify(() => !settings.visible)
        compare(open("settings").tab, 0)
    }

    function test_languageChangesWhileTheProgramRuns() {
        for (const [code, name, first] of [["de", "Deutsch", "Systemsprache"],
                                           ["xx", "xx", "System default"]]) {
            i18n.setLanguage(code)
            compare([window.nameOfLanguage(code), window.langList[0].name], [name, first])
        }
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
        for (const name of views.names.filter(view => !/^(focus|contrast)/.test(view))) {
            views.arrange(name)
            if (name === "call-hint" || name === "settings-status") { // longer where all is not well
                controller.cameraRegistered = controller.usbAvailable = false
            }
            verify(waitForPolish(window))
            compare(cutTexts(window.contentItem), [], name)
        }
    }
}
