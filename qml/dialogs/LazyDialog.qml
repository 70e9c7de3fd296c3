import QtQuick

// A dialog that is made when it is opened for the first time, so that the window appears sooner.
Loader {
    readonly property bool shown: (item as Modal)?.shown ?? false

    anchors.fill: parent
    active: false

    function open(): void {
        active = true
        const dialog = item as Modal
        dialog.open()
    }
}
