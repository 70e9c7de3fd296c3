import QtQuick

// Stands in for the controller where pictures or tests need a state at will. Properties may be set
// freely; an action does to the state what it would do in the program, and notes its call.
QtObject {
    property bool phoneConnected
    property var phones
    property int activeId
    property string phoneName
    property bool live
    property bool outputEnabled
    property bool appConnected
    property bool recording
    property string recordingFolder
    property string qrDataUrl
    property string pairAddress
    property string pcName
    property int port
    property int fps
    property int decodeMs
    property bool osDark
    property int themeMode
    property bool minimizeToTray
    property bool usbAvailable
    property bool cameraRegistered
    property bool firewallBlocked
    property bool videoWaiting
    property bool videoStalled
    property bool trustsPhones
    property bool cameraNeedsRegistration
    property string openCameraFolder
    property string platform
    readonly property string appVersion: "1.1"

    property var calls: [] // "name argument argument" each

    signal frameReady(var image)
    signal recordingEnded(string outcome, bool started, string path, int seconds)

    Component.onCompleted: reset()

    // No phone, nothing running; the pairing's values stay.
    function reset(): void {
        phones = []
        phoneConnected = live = appConnected = recording = firewallBlocked = false
        videoWaiting = videoStalled = trustsPhones = false
        outputEnabled = usbAvailable = cameraRegistered = osDark = minimizeToTray = true
        cameraNeedsRegistration = true
        platform = "winnt"
        activeId = themeMode = 0
        phoneName = openCameraFolder = ""
        recordingFolder = "/home/user/Videos/Pevrix"
        port = 8788
        fps = 30
        decodeMs = 4
        calls = []
    }

    function connectPhones(): void {
        phones = [
            { id: 1, deviceId: "a", name: "Kitchen phone", phoneName: "Kitchen phone",
              model: "Model 15", os: "Mobile OS 18", usb: false },
            { id: 2, deviceId: "b", name: "Desk phone", phoneName: "Desk phone",
              model: "", os: "Mobile OS 17", usb: true }
        ]
        phoneConnected = live = true
        setActive(1)
    }

    function note(...call): void {
        calls.push(call.join(" "))
    }

    function setActive(id: int): void {
        note("setActive", id)
        activeId = id
        phoneName = phones.find(phone => phone.id === id).name
    }

    function renamePhone(id: int, name: string): void {
        note("renamePhone", id, name)
        phones = phones.map(
                    phone => phone.id === id ? Object.assign({}, phone, { name: name }) : phone)
    }

    function toggleOutput(): void {
        note("toggleOutput")
        outputEnabled = !outputEnabled
    }

    function toggleRecording(): void {
        note("toggleRecording")
        recording = !recording
    }

    function setThemeMode(mode: int): void {
        note("setThemeMode", mode)
        themeMode = mode
    }

    function start(): void { note("start") }
    function copyPairingLink(): void { note("copyPairingLink") }
    function openRecordingsFolder(): void { note("openRecordingsFolder") }
    function regeneratePairing(): void { note("regeneratePairing") }
    function registerCamera(): void { note("registerCamera") }
    function unregisterCamera(): void { note("unregisterCamera") }
    function allowThroughFirewall(): void { note("allowThroughFirewall") }
}
