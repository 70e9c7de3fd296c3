pragma ComponentBehavior: Bound

import QtQuick
import Pevrix

// The window: the pairing view while no phone is connected, the live view while one is.
Window {
    id: root

    // The controller is a context property of the engine, under the name the interface uses.
    readonly property var controller: app // qmllint disable unqualified

    readonly property int themeMode: controller.themeMode // 0 system, 1 light, 2 dark
    readonly property bool dark: themeMode === 0 ? controller.osDark : themeMode === 2
    readonly property bool onLive: controller.phoneConnected

    width: 540
    height: 640
    minimumWidth: 460
    minimumHeight: 502
    visible: true
    title: "Pevrix"
    color: Theme.bg

    Binding {
        target: Theme
        property: "dark"
        value: root.dark
    }

    Connections {
        target: root.controller

        function onFrameReady(image) {
            liveView.setFrame(image)
        }
    }

    PairingView {
        anchors.fill: parent
        visible: !root.onLive
        qrDataUrl: root.controller.qrDataUrl
        pairAddress: root.controller.pairAddress
        pcName: root.controller.pcName
    }

    LiveView {
        id: liveView

        anchors.fill: parent
        visible: root.onLive
        phoneName: root.controller.phoneName
        recording: root.controller.recording
        recordable: root.controller.live && root.controller.outputEnabled
        onRecordClicked: root.controller.toggleRecording()
    }
}
