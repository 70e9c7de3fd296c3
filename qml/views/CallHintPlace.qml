pragma ComponentBehavior: Bound

import QtQuick

// Where the hint appears once the video has flowed for a while and no program has taken it; never
// again in this run once one has, or the hint was dismissed.
Item {
    id: root

    required property bool wanted // the video flows and can be taken
    property bool due: false
    property bool done: false

    readonly property bool seen: wanted && due && !done && !App.appConnected
    readonly property bool inUse: App.appConnected

    objectName: "callHintPlace"
    onInUseChanged: if (inUse) {
        done = true
    }

    Timer {
        interval: 5000
        running: root.wanted && !root.due && !root.done
        onTriggered: root.due = true
    }

    Loader {
        anchors { horizontalCenter: parent.horizontalCenter; bottom: parent.bottom }
        active: root.seen

        sourceComponent: CallHint {
            objectName: "callHint"
            maxWidth: root.width - 24
            registered: !App.cameraNeedsRegistration || App.isCameraRegistered()
            onRegisterClicked: App.wishToRegister()
            onDismissed: root.done = true
        }
    }
}
