import QtQuick

// Tells screen readers what happens without their user having done it: phones that come and go, and
// what programs get to see, and recordings.
Item {
    id: root

    property var names: ({}) // of the connected phones, by id
    property string said
    property bool recordingFailed: false
    readonly property string output: !App.phoneConnected || !App.live ? ""
                                     : App.outputEnabled ? qsTr("The camera is live")
                                                         : qsTr("The camera is paused")

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

    function tellOfRecording(): void {
        say(recordingFailed ? qsTr("The recording has stopped by itself") : qsTr("Recording saved"))
    }

    Accessible.role: Accessible.AlertMessage
    Accessible.name: said
    onOutputChanged: say(output)

    Connections {
        target: App.controller
        ignoreUnknownSignals: true

        function onRecordingEnded(reason: string): void {
            root.recordingFailed = true
        }
    }

    Connections {
        target: App

        function onPhonesChanged(): void {
            root.comparePhones()
        }

        function onRecordingChanged(): void {
            if (App.recording) {
                root.recordingFailed = false
                root.say(qsTr("Recording"))
            } else {
                Qt.callLater(root.tellOfRecording) // why it ended may be told after
            }
        }
    }
}
