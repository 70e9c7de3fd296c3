import QtQuick
import QtTest
import Pevrix
import "qrc:/qml"

// The window tells the truth about what it cannot do just now, and says what to do about it.
WindowTestCase {
    id: test

    name: "States"

    SignalSpy { id: swaps; target: test.window; signalName: "frameSwapped" }

    function test_aSilentPhoneIsShownAsSuch_data() {
        return [
            { tag: "waiting", chip: "WAITING", card: "Waiting…", overlay: "Waiting for video…" },
            { tag: "stalled", chip: "NO VIDEO", card: "No video", overlay: "Phone paused (no video)" }
        ]
    }

    function test_aSilentPhoneIsShownAsSuch(row) {
        controller.connectPhones()
        verify(says("LIVE", part("outputChip")) && part("recordButton").enabled)
        controller.videoWaiting = row.tag === "waiting"
        controller.videoStalled = row.tag === "stalled"
        tryVerify(() => says(row.overlay))
        verify(says(row.card) && says(row.chip, part("outputChip")) && !says("LIVE"))
        verify(!part("recordButton").enabled)
        controller.recording = true
        verify(part("recordButton").enabled, "a recording can always be stopped")
        controller.recording = controller.outputEnabled = false
        verify(says("Camera output paused") && !says(row.overlay))
        controller.outputEnabled = true
        controller.videoWaiting = controller.videoStalled = false
        verify(!says(row.overlay) && says("LIVE") && part("recordButton").enabled)
    }

    function test_everyEndOfARecordingIsTold() {
        const [saved, ended, refused] = ["Recording saved", "The recording has ended",
                                         "The recording could not start"]
        for (const [outcome, started, title, action, text] of [
                 ["saved", true, saved, "Show in folder", "Pevrix_1.mp4 · 3:07"],
                 ["empty", true, ended, ""], ["folderGone", true, ended, "Choose folder"],
                 ["diskFull", true, ended, "Show in folder"],
                 ["folderGone", false, refused, "Choose folder",
                  "Pevrix cannot write to the folder /videos."],
                 ["writeFailed", false, refused, "Choose folder"]]) {
            controller.recordingEnded(outcome, started, "/videos/Pevrix_1.mp4", 187)
            const notice = part("notice")
            verify(says(title) && (!text || says(text)), outcome)
            compare(controlsIn(notice)[0].text, action)
            if (action === "Choose folder") {
                mouseClick(button(action))
                compare(part("settings").tab, 1)
                part("settings").close()
            } else {
                mouseClick(button("Dismiss", notice))
            }
            verify(!notice.visible)
        }
    }

    function test_withoutACameraThereIsNoCodeButAnotherTry() {
        controller.port = 0
        controller.qrDataUrl = controller.pairAddress = ""
        verify(says("Not ready") && !says("Ready to pair") && !says("…"))
        mouseClick(button("Try again"))
        verify(says("Phones still cannot connect"))
        controller.port = 8788
        verify(says("Ready to pair") && !button("Try again"))
    }

    function test_theAddressFollowsAndItsLackIsTold() {
        controller.pairAddress = "No LAN address found"
        i18n.setLanguage("de")
        verify(says("Kein Netzwerk") && says("Keine LAN-Adresse gefunden"))
        i18n.setLanguage("en")
        controller.pairAddress = "10.0.0.5:8788"
        verify(says("Ready to pair") && says("10.0.0.5:8788"))
        mouseClick(button("Can't scan?"))
        mouseClick(button("Copy pairing link"))
        verify(says("Copied"))
    }

    function test_anUnregisteredCameraIsToldWhereThereIsSuchAThing() {
        controller.pairAddress = "10.0.0.5:8788"
        verify(!button("Register"))
        controller.cameraRegistered = false
        verify(button("Register"))
        controller.cameraNeedsRegistration = false
        verify(!button("Register"))
        open("settings", 1)
        verify(!texts().some(text => text.includes("egist")))
        controller.platform = "linux"
        controller.usbAvailable = false
        part("settings").tab = 2
        verify(!texts().some(text => text.includes("iTunes")))
    }

    function test_aCameraThatOthersCanChangeIsRegisteredOnlyOnceMoreAsked() {
        controller.pairAddress = "10.0.0.5:8788"
        controller.cameraRegistered = false
        controller.openCameraFolder = "D:\\<b>Tools"
        const answer = name => {
            const dialog = part("registration")
            tryCompare(dialog, "opacity", 1)
            verify(texts(dialog).some(text => text.includes(controller.openCameraFolder)))
            mouseClick(button(name, dialog))
            tryCompare(dialog, "opacity", 0)
        }
        waitForPolish(window) // the button has just appeared
        mouseClick(button("Register"))
        answer("Cancel")
        open("settings", 1)
        mouseClick(button("Register the camera", part("settings")))
        tryCompare(part("registration"), "opacity", 1)
        keyClick(Qt.Key_Escape)
        tryCompare(part("registration"), "opacity", 0)
        verify(part("settings").shown)
        compare(controller.calls, [])
        mouseClick(button("Register the camera", part("settings")))
        answer("Register anyway")
        compare(controller.calls, ["registerCamera"])
    }

    function test_aNewCodeIsAskedForOnlyWhereItForgetsPhones() {
        open("settings", 1)
        controller.trustsPhones = true
        mouseClick(part("regenerate"))
        compare(controller.calls, [])
        mouseClick(button("Cancel"))
        mouseClick(part("regenerate"))
        keyClick(Qt.Key_Return) // goes to Cancel
        compare(controller.calls, [])
        mouseClick(part("regenerate"))
        mouseClick(part("regenerate"))
        compare(controller.calls, ["regeneratePairing"])
        verify(texts(part("settings")).some(text => text.startsWith("Done")))
        controller.trustsPhones = false
        mouseClick(part("regenerate"))
        compare(controller.calls.length, 2)
    }

    function test_theHintHowToUseTheCameraGoesForGoodOnceItIsUsed() {
        controller.connectPhones()
        const place = part("callHintPlace")
        place.due = true
        tryVerify(() => part("callHint") !== null)
        controller.appConnected = true
        tryVerify(() => part("callHint") === null)
        controller.appConnected = false
        verify(!place.seen)
    }

    function picture(width) {
        let image = null
        part("outputChip").grabToImage(result => image = result.image, Qt.size(width, 20))
        tryVerify(() => image !== null)
        return image
    }

    function test_aWindowThatNobodySeesTakesNoPicturesAndDrawsNothing_data() {
        return [{ tag: "hidden", hide: () => window.hide() },
                { tag: "minimised", hide: () => window.showMinimized() }]
    }

    function test_aWindowThatNobodySeesTakesNoPicturesAndDrawsNothing(row) {
        controller.connectPhones()
        const [wide, narrow] = [picture(64), picture(32)]
        controller.frameReady(wide)
        row.hide()
        tryVerify(() => window.visibility === Window.Hidden || window.visibility === Window.Minimized)
        window.captureMode = false // dots would pulse
        wait(50)
        swaps.clear()
        for (let i = 0; i < 10; ++i) {
            controller.frameReady(i % 2 === 0 ? wide : narrow)
            wait(10)
        }
        compare(part("preview").frameSize, Qt.size(64, 20))
        compare(swaps.count, 0)
        window.showNormal()
        controller.frameReady(narrow)
        compare(part("preview").frameSize, Qt.size(32, 20))
        tryVerify(() => swaps.count > 0)
    }

    function test_onlyStillModeHoldsThePulses() {
        controller.connectPhones()
        const dots = item => [...item.children].reduce((found, child) => found.concat(dots(child)),
                                                       item.pulsing ? [item] : [])
        wait(100)
        verify(dots(window.contentItem).every(dot => dot.opacity === 1))
        window.captureMode = false
        tryVerify(() => dots(window.contentItem).some(dot => dot.opacity < 1))
    }
}
