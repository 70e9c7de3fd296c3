import QtQuick

// Tells screen readers what happens without their user having done it: phones that come and go, what
// programs get to see, and that it is recorded. How that ended, the notice says.
Item {
    id: root

    property var names: ({}) // of the connected phones, by id
    property string said
    readonly property string output: !App.phoneConnected || !App.live ? ""
                                     : !App.outputEnabled ? qsTr("The camera is paused")
                                     : App.videoState === "stalled"
                                       ? qsTranslate("VideoOverlay", "Phone paused (no video)")
                                       : qsTr("The camera is live")
    //: Announced by a screen reader: a recording has started.
    readonly property string recording: App.recording ? qsTr("Recording") : ""

    function say(text: string): void {
        said = text
        if (text !== "") {
            Accessible.announce(text)
        }
    }

    function comparePhones(): void {
        const now = {}
        for (let i = 0; i < App.phones.length; ++i) { // qmllint disable compiler
            const phone = App.phones[i]
            now[phone.id] = phone.name
            if (names[phone.id] === undefined) {
                say(qsTr("Phone connected: %1").arg(phone.name))
            }
        }
        const known = Object.keys(names)
        for (let i = 0; i < known.length; ++i) {
            const id = known[i]
            if (now[id] === undefined) {
                say(qsTr("Phone disconnected: %1").arg(names[id]))
            }
        }
        names = now
    }

    Accessible.role: Accessible.AlertMessage
    Accessible.name: said
    onOutputChanged: say(output)
    onRecordingChanged: say(recording)

    Connections {
        target: App

        function onPhonesChanged(): void {
            root.comparePhones()
        }
    }
}
