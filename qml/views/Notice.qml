import QtQuick
import QtQuick.Layouts

// A card that tells of something that has happened, with one thing to do about it. Good news goes by
// itself after a while; anything else stays until it is dismissed.
Rectangle {
    id: root

    property bool shown: false
    property bool good: true
    property string title: ""
    property string text: ""
    property string action: "" // the button's text; empty: there is none

    signal actionClicked()

    // Long enough to read it and to go for the button.
    readonly property int lifetime: 12000

    function tell(isGood: bool, newTitle: string, newText: string, newAction: string): void {
        good = isGood
        title = newTitle
        text = newText
        action = newAction
        shown = true
        Accessible.announce(title + ". " + text)
        if (isGood) {
            life.restart()
        } else {
            life.stop()
        }
    }

    visible: shown
    enabled: shown // hidden, it must not keep the focus
    implicitHeight: row.implicitHeight + 20
    radius: Theme.rCard
    color: Theme.surface
    border.color: Theme.hair

    Accessible.role: Accessible.AlertMessage
    Accessible.name: title + ". " + text

    Timer {
        id: life

        interval: root.lifetime
        onTriggered: root.shown = false
    }

    HoverHandler {
        onHoveredChanged: if (root.good && root.shown) {
            life.running = !hovered
        }
    }

    Shadow {
        anchors.fill: parent
        z: -1
        radius: root.radius
        color: root.color
        shadowColor: Theme.shadow
    }

    RowLayout {
        id: row

        anchors { left: parent.left; right: parent.right; leftMargin: 14; rightMargin: 8 }
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.sp3

        Dot {
            Layout.alignment: Qt.AlignTop
            Layout.topMargin: 5
            color: root.good ? Theme.accent : Theme.amber
        }

        Column {
            Layout.fillWidth: true
            spacing: 2

            Text {
                width: parent.width
                text: root.title
                color: Theme.textc
                font.pixelSize: Theme.fsBody
                font.weight: Font.DemiBold
                wrapMode: Text.Wrap
            }

            Text {
                width: parent.width
                visible: root.text !== ""
                text: root.text
                textFormat: Text.PlainText
                color: Theme.muted
                font.pixelSize: Theme.fsCaption
                wrapMode: Text.Wrap // and within a long name of a file, too
                elide: Text.ElideRight
                maximumLineCount: 4
            }
        }

        AppButton {
            visible: text !== ""
            text: root.action
            size: Theme.btnHsm
            onClicked: {
                root.shown = false
                root.actionClicked()
            }
        }

        Clickable {
            id: dismiss

            Layout.preferredWidth: 26
            Layout.preferredHeight: 26
            ringRadius: Theme.rChip
            Accessible.name: qsTr("Dismiss")
            onClicked: root.shown = false

            background: Rectangle {
                radius: Theme.rChip
                color: Theme.raisedHover
                visible: dismiss.hovered
            }
            contentItem: CrossGlyph { color: Theme.muted }
        }
    }
}
