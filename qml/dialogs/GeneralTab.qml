import QtQuick
import QtQuick.Layouts

// Settings: theme, language, what closing the window does.
Column {
    id: root

    required property string languageName // of the interface

    signal languageClicked()

    spacing: 18

    Section {
        width: parent.width
        label: qsTr("APPEARANCE")

        SegmentedBar {
            width: parent.width
            //: A choice: the theme follows the system's light or dark.
            labels: [qsTr("System"), qsTr("Light"), qsTr("Dark")]
            current: App.themeMode
            onPicked: index => App.setThemeMode(index)
        }
    }

    Section {
        width: parent.width
        label: qsTr("LANGUAGE")

        Clickable {
            id: language

            width: parent.width
            height: 40
            ringRadius: 9
            Accessible.name: qsTr("Language: %1").arg(root.languageName)
            onClicked: root.languageClicked()

            background: Rectangle {
                radius: 9
                color: language.hovered ? Theme.raisedHover : Theme.raised
                border.color: Theme.hair
            }
            contentItem: RowLayout {
                ElidedText {
                    Layout.fillWidth: true
                    Layout.leftMargin: 12
                    text: root.languageName
                }

                Text {
                    Layout.rightMargin: 12
                    text: "▾"
                    color: Theme.muted
                    font.pixelSize: Theme.fsBody
                }
            }
        }
    }

    Section {
        width: parent.width
        label: qsTr("WINDOW")

        InfoRow {
            label: qsTr("Close to tray")

            Switch {
                Layout.rightMargin: 2
                on: App.minimizeToTray
                name: qsTr("Close to tray")
                onClicked: App.setMinimizeToTray(!App.minimizeToTray)
            }
        }

        Note {
            text: qsTr("Keep Pevrix running in the notification area when you close the window.")
        }
    }
}
