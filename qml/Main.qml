pragma ComponentBehavior: Bound

import QtQuick

// The window: a rounded card with its own title bar and shadow, in it the pairing view while no
// phone is connected and the live view while one is, over it the dialogs.
Window {
    id: root

    property bool captureMode: false // the card fills the window, for pictures
    property bool trayAvailable: true // the desktop has a place to bring a hidden window back from
    readonly property bool isMax: visibility === Window.Maximized
    readonly property int normalShadow: 16
    readonly property int shadowMargin: isMax || captureMode ? 0 : normalShadow
    readonly property int cardRadius: isMax || captureMode ? 0 : Theme.rCard
    property alias _restoreW: frame.restoreWidth
    property alias _moving: frame.moving
    readonly property size normalSize: Qt.size(540, 640)

    property int themeMode: App.themeMode // 0 system, 1 light, 2 dark
    readonly property bool dark: themeMode === 0 ? App.osDark : themeMode === 2
    property bool contrast: SystemPreferences.moreContrast
    readonly property bool onLive: App.phoneConnected
    readonly property LiveView liveView: live.item as LiveView // while there is one
    readonly property PhoneCard renamingCard: liveView?.renamingCard ?? null

    property int recSeconds: 0
    readonly property string recClock: Math.floor(recSeconds / 60) + ":"
                                       + String(recSeconds % 60).padStart(2, "0")

    readonly property var langList: // qmllint disable compiler
        Languages.list.map(entry => ({ code: entry.code, name: entry.name }))

    // The palette that dialogs and menus take their colours from.
    readonly property color bg: Theme.bg
    readonly property color surface: Theme.surface
    readonly property color raised: Theme.raised
    readonly property color hair: Theme.hair
    readonly property color textc: Theme.textc
    readonly property color muted: Theme.muted
    readonly property color faint: Theme.faint
    readonly property color accent: Theme.accent
    readonly property color accentInk: Theme.accentInk
    readonly property color red: Theme.red
    readonly property color amber: Theme.amber
    readonly property string mono: Theme.mono
    readonly property int rz: 6 // thickness of the resize grips

    signal dialogAsked(string name)
    signal registrationAsked(string folder)
    signal hiddenToTray()

    width: normalSize.width
    height: normalSize.height
    minimumWidth: 460
    minimumHeight: 502
    visible: true
    title: "Pevrix"
    flags: Qt.Window | Qt.FramelessWindowHint
    color: "transparent"

    // For this run only: the stored setting stays.
    function shotSetTheme(mode: int): void {
        themeMode = mode
    }

    function shotOpenView(view: string): void {
        openDialog(view)
    }

    // "settings", "recordings" (of the settings), "language" or "addphone"; any other name opens
    // nothing.
    function openDialog(name: string): void {
        dialogs.active = true
        dialogAsked(name)
    }

    function askToRegister(folder: string): void {
        dialogs.active = true
        registrationAsked(folder)
    }

    function nameOfLanguage(code: string): string {
        return Languages.nameOf(code)
    }

    // A window that nothing could bring back must not vanish.
    function hideToTray(): void {
        if (trayAvailable) {
            hide()
            hiddenToTray()
        } else {
            showMinimized()
        }
    }

    function closeOrHide(): void {
        if (App.minimizeToTray) {
            hideToTray()
        } else {
            Qt.quit()
        }
    }

    onClosing: close => {
        if (App.minimizeToTray) {
            close.accepted = false
            hideToTray()
        }
    }

    Binding { target: Theme; property: "dark"; value: root.dark }
    Binding { target: Theme; property: "contrast"; value: root.contrast }
    Binding { target: Motion; property: "still"; value: root.captureMode || SystemPreferences.lessMotion }

    // Nobody sees the pictures of a window that is hidden: they are not even looked at.
    Connections {
        target: App.controller
        enabled: root.visibility !== Window.Hidden && root.visibility !== Window.Minimized

        function onFrameReady(image: var): void {
            root.liveView?.setFrame(image)
        }
    }

    Connections {
        target: App

        function onRegistrationDoubted(folder: string): void {
            root.askToRegister(folder)
        }
    }

    Timer {
        interval: 1000
        repeat: true
        running: App.recording
        onRunningChanged: root.recSeconds = 0
        onTriggered: ++root.recSeconds
    }

    Shadow {
        anchors.fill: card
        visible: root.shadowMargin > 0
        radius: card.radius
        color: card.color
        shadowColor: Theme.shadow
    }

    Rectangle {
        id: card

        anchors { fill: parent; margins: root.shadowMargin }
        radius: root.cardRadius
        color: Theme.bg
        border.color: Theme.hair

        TitleBar {
            id: titleBar

            anchors { left: parent.left; right: parent.right; top: parent.top; margins: 1 }
            topRadius: Math.max(0, card.radius - 1)
            maximized: root.isMax
            onSettingsClicked: root.openDialog("settings")
            onMinimizeClicked: root.showMinimized()
            onMaximizeToggled: frame.toggleMaximized()
            onCloseClicked: root.closeOrHide()
            onDragStarted: (point, global) => frame.startMove(point, global, width)
            onDragEnded: frame.moving = false
        }

        UpdateBar {
            id: updateBar
            objectName: "updateBar"

            anchors { left: titleBar.left; right: titleBar.right; top: titleBar.bottom }
            available: App.updateAvailable
            latestVersion: App.latestVersion
            onDownloadClicked: App.openDownload()
        }

        Item {
            anchors { left: parent.left; right: parent.right }
            anchors { top: updateBar.bottom; bottom: parent.bottom }

            PairingView {
                objectName: "pairingView"
                anchors.fill: parent
                visible: !root.onLive
                enabled: visible // hidden, neither view must keep the focus
                covered: dialogs.anyShown
                qrDataUrl: App.qrDataUrl
                pairAddress: App.pairAddress
                pcName: App.pcName
                listening: App.port !== 0 || !App.started
                firewallBlocked: App.firewallBlocked
                appUrl: App.siteUrl + "/app"
                unregistered: visible && App.cameraNeedsRegistration && !App.isCameraRegistered()
                recordingClock: App.recording ? root.recClock : ""
                onAllowClicked: App.allowThroughFirewall()
                onRegisterClicked: App.wishToRegister()
                onRetryClicked: App.start()
                onStopRecordingClicked: App.toggleRecording()
            }

            // Made with the first phone, so that the window appears sooner.
            Loader {
                id: live
                objectName: "liveView"

                anchors.fill: parent
                active: root.onLive || item !== null
                visible: root.onLive
                enabled: visible

                sourceComponent: LiveView {
                    clock: root.recClock
                    onAddPhoneClicked: root.openDialog("addphone")
                    onMenuRequested: (field, x, y) => editMenu.openFor(field, x, y)
                    onMenuAsked: field => editMenu.openByKey(field)
                }
            }
        }

        // Made with the first notice. Above the strip of phones, so that it hides no control.
        Loader {
            id: notice

            anchors { horizontalCenter: parent.horizontalCenter; bottom: parent.bottom }
            anchors.bottomMargin: root.onLive && root.liveView ? root.liveView.bottomBarHeight + 40 : 16
            width: Math.min(parent.width - 56, 440)
            active: false
            source: "RecordingNotice.qml"

            Connections {
                target: App.controller
                ignoreUnknownSignals: true

                function onRecordingEnded(outcome: string, started: bool, path: string, seconds: int): void {
                    notice.active = true
                    const card = notice.item as RecordingNotice
                    card.report(outcome, started, path, seconds)
                }
            }

            Connections {
                target: notice.item as RecordingNotice

                function onFolderWanted(): void {
                    root.openDialog("recordings")
                }
            }
        }

        // Made with the first dialog that is opened, so that the window appears sooner.
        Loader {
            id: dialogs

            anchors.fill: parent
            z: 200
            active: false
            readonly property bool anyShown: (item as Dialogs)?.anyShown ?? false

            Component.onCompleted: setSource("Dialogs.qml", { window: root })
        }
    }

    WindowFrame {
        id: frame

        anchors.fill: card
        window: root
        normalSize: root.normalSize
        shadow: root.normalShadow
        thickness: root.rz
    }

    RenameCatcher { card: root.renamingCard }

    Announcer {}

    EditMenu {
        id: editMenu
        objectName: "editMenu"

        theme: root
    }
}
