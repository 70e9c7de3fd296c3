import QtQuick

// Tells how a recording went. Made with the first one that ends.
Notice {
    id: root

    property string path // of the recording
    property bool fileThere: false

    signal folderWanted() // another one is to be chosen

    objectName: "notice"
    onActionClicked: {
        if (fileThere) {
            FileBrowser.showInFolder(path)
        } else {
            folderWanted()
        }
    }

    // What AppController::recordingEnded says.
    function report(outcome: string, started: bool, file: string, seconds: int): void {
        const saved = outcome === "saved" || outcome === "resized"
        path = file
        fileThere = started && outcome !== "folderGone" && outcome !== "empty"
        const title = saved ? qsTr("Recording saved")
                    //: A title: it ended through a fault, not by the user.
                    : started ? qsTr("The recording has ended")
                    : qsTr("The recording could not start")
        tell(saved, title, describe(outcome, started, file, seconds),
             fileThere ? qsTr("Show in folder") : outcome === "empty" ? "" : qsTr("Choose folder"))
    }

    function describe(outcome: string, started: bool, file: string, seconds: int): string {
        const slash = Math.max(file.lastIndexOf("/"), file.lastIndexOf("\\"))
        const made = file.substring(slash + 1) + " · " + Math.floor(seconds / 60) + ":"
                     + String(seconds % 60).padStart(2, "0")
        switch (outcome) {
        case "saved":
            return made
        case "resized":
            return made + "\n" + qsTr("It ended because the phone's picture has another size now.")
        case "empty":
            return qsTr("No picture came, so there is no file.")
        case "diskFull":
            return started ? qsTr("The disk is full. What was recorded until then is saved.")
                           : qsTr("The disk is full. Free some space or choose another folder.")
        case "folderGone":
            return started ? qsTr("The recordings folder is gone, and the recording with it.")
                           : qsTr("Pevrix cannot write to the folder %1.").arg(file.substring(0, slash))
        default:
            return started ? qsTr("The video could not be written any further. What was recorded until then is saved.")
                           : qsTr("The video cannot be written there. Choose another folder or restart Pevrix.")
        }
    }
}
