pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts

// What to do where the code cannot be scanned: the address, and, opened by a click, how to use it.
Rectangle {
    id: root

    required property string address // with port; empty: there is none
    property bool open: false
    property bool copied: false

    readonly property real roomForLabel: width - 28 - addressText.implicitWidth - Theme.sp2
    readonly property bool usable: address !== "" && App.hasLanAddress

    implicitHeight: open ? 44 + help.height + 12 : 44
    radius: Theme.rRow
    color: Theme.raised
    border.color: Theme.hair

    onUsableChanged: if (!usable) {
        open = false
    }
    onOpenChanged: copied = false

    Clickable {
        id: row

        width: parent.width
        height: 44
        enabled: root.usable
        ringRadius: Theme.rRow
        Accessible.name: label.text
        Accessible.description: root.address
        onClicked: root.open = !root.open

        contentItem: RowLayout {
            spacing: Theme.sp2

            ElidedText {
                id: label

                Layout.leftMargin: 14
                Layout.maximumWidth: Math.max(60, root.roomForLabel)
                text: qsTr("Can't scan?")
                color: row.hovered ? Theme.textc : Theme.muted
            }

            Text {
                id: chevron

                // Where a language needs the room, the words alone must do.
                visible: root.usable
                         && label.implicitWidth + Theme.sp2 + implicitWidth <= root.roomForLabel
                text: "▾"
                color: Theme.muted
                font.pixelSize: Theme.fsBody
                transform: Scale {
                    origin.y: chevron.height / 2
                    yScale: root.open ? -1 : 1
                }
            }

            Text {
                id: addressText

                Layout.rightMargin: 14
                Layout.fillWidth: true
                horizontalAlignment: Text.AlignRight
                text: App.hasLanAddress ? root.address : qsTr("No LAN address found")
                textFormat: Text.PlainText
                color: Theme.textc
                font.pixelSize: Theme.fsBtnLg
                font.weight: Font.DemiBold
            }
        }
    }

    Loader {
        id: help

        x: 14
        y: 44
        width: parent.width - 28
        active: root.open

        sourceComponent: Column {
            spacing: Theme.sp2

            Note {
                text: qsTr("Type this address into the Pevrix app. Or copy the pairing link, send it to your phone and open it there. Whoever has the link can connect: share it with nobody.")
            }

            AppButton {
                size: Theme.btnHsm
                text: root.copied ? qsTr("Copied") : qsTr("Copy pairing link")
                onClicked: {
                    root.copied = true
                    App.copyPairingLink()
                }
            }
        }
    }
}
