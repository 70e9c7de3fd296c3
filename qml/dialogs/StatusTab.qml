import QtQuick
import QtQuick.Layouts

// Settings: how phones reach this PC, and how the video does.
Column {
    spacing: 18

    Section {
        width: parent.width
        label: qsTr("CONNECTION")

        InfoRow {
            label: qsTr("This PC")

            ValueText { text: App.pcName }
        }

        InfoRow {
            label: qsTr("Port")

            ValueText { text: App.port }
        }

        InfoRow {
            label: "USB"

            Dot { color: App.usbAvailable ? Theme.accent : Theme.amber }

            ElidedText {
                Layout.maximumWidth: 280
                Layout.rightMargin: 6
                //: Of USB: phones on a cable can connect.
                text: App.usbAvailable ? qsTr("Ready")
                      //: usbmuxd is the name of a system service.
                      : App.onLinux ? qsTr("Needs the usbmuxd service")
                      : qsTr("Needs iTunes or the Apple Devices app")
                color: Theme.muted
                font.pixelSize: Theme.fsCaption
            }
        }
    }

    Section {
        width: parent.width
        label: qsTr("DIAGNOSTICS")

        InfoRow {
            label: qsTr("Performance")

            ValueText {
                text: qsTr("%1 fps · %2 ms").arg(App.fps).arg(App.decodeMs)
            }
        }
    }
}
