pragma Singleton

import QtQml

// The program as the interface sees it: what its three context properties hold, with types. The only
// place that looks into them; any objects with these properties and functions will do.
QtObject {
    // qmllint disable unqualified compiler
    readonly property var controller: app
    readonly property var updates: updater
    readonly property var translator: i18n // ends before the engine does
    // qmllint enable unqualified

    readonly property bool phoneConnected: controller.phoneConnected
    readonly property var phones: controller.phones
    readonly property int activeId: controller.activeId
    readonly property string phoneName: controller.phoneName
    readonly property bool live: controller.live
    readonly property bool outputEnabled: controller.outputEnabled
    readonly property bool appConnected: controller.appConnected
    readonly property bool recording: controller.recording
    readonly property string recordingFolder: controller.recordingFolder
    readonly property string qrDataUrl: controller.qrDataUrl
    readonly property string pairAddress: controller.pairAddress
    readonly property string pcName: controller.pcName
    readonly property int port: controller.port
    readonly property bool started: controller.status !== "Idle" // what it says before it has begun
    readonly property int fps: controller.fps
    readonly property int decodeMs: controller.decodeMs
    readonly property bool osDark: controller.osDark
    readonly property int themeMode: controller.themeMode
    readonly property bool minimizeToTray: controller.minimizeToTray
    readonly property bool usbAvailable: controller.usbAvailable
    readonly property bool firewallBlocked: controller.firewallBlocked
    readonly property string appVersion: controller.appVersion

    // Of the active phone: "" without one, "waiting" for its first picture, "stalled" or "flowing".
    readonly property string videoState: !phoneConnected ? "" : controller.videoWaiting ? "waiting"
                                         : controller.videoStalled ? "stalled" : "flowing"
    readonly property bool hasLanAddress: pairAddress !== "No LAN address found"
    // Elsewhere than on Linux a camera is registered, and phones on a cable need the maker's service.
    readonly property bool onLinux: controller.platform === "linux"
    readonly property bool trustsPhones: controller.trustsPhones ?? false
    readonly property bool cameraNeedsRegistration: controller.cameraNeedsRegistration ?? true

    readonly property bool updateAvailable: updates.available
    readonly property string latestVersion: updates.latestVersion
    readonly property string siteUrl: updates.siteUrl

    readonly property string language: translator?.language ?? ""

    signal registrationDoubted(string folder)

    // The system is asked at each read, and each change of the controller reads.
    function isCameraRegistered(): bool { return controller.cameraRegistered }
    function folderToChooseFrom(): url { return controller.folderToChooseFrom ?? "" } // the disk is asked

    function setActive(id: int): void { controller.setActive(id) }
    function renamePhone(id: int, name: string): void { controller.renamePhone(id, name) }
    function toggleOutput(): void { controller.toggleOutput() }
    function toggleRecording(): void { controller.toggleRecording() }
    function setRecordingFolder(folder: string): void { controller.recordingFolder = folder }
    function openRecordingsFolder(): void { controller.openRecordingsFolder() }
    function setThemeMode(mode: int): void { controller.setThemeMode(mode) }
    function setMinimizeToTray(on: bool): void { controller.minimizeToTray = on }
    function start(): void { controller.start() }
    function copyPairingLink(): void { controller.copyPairingLink() }
    function regeneratePairing(): void { controller.regeneratePairing() }
    function registerCamera(): void { controller.registerCamera() }
    // Unless the question comes first whether to register what others can change.
    function wishToRegister(): void {
        const folder = controller.openCameraFolder ?? ""
        if (folder === "") {
            registerCamera()
        } else {
            registrationDoubted(folder)
        }
    }
    function unregisterCamera(): void { controller.unregisterCamera() }
    function allowThroughFirewall(): void { controller.allowThroughFirewall() }
    function openDownload(): void { updates.openDownload() }
    function setLanguage(code: string): void { translator.setLanguage(code) }
    // qmllint enable compiler
}
