import QtQuick

// One connected phone. A click makes it the active one; a double-click, the pencil or F2 begins
// to rename it. Enter or the loss of the focus commits the name, Escape leaves the old one.
Clickable {
    id: root

    required property int phoneId
    required property string name
    required property string deviceModel
    required property string deviceOs
    required property bool usb
    required property bool active
    property string videoState: "flowing" // of the active phone; or "waiting", "stalled"
    property bool editing: false

    readonly property string system: deviceModel !== "" ? deviceModel : deviceOs
    readonly property bool waiting: active && videoState === "waiting"
    readonly property bool stalled: active && videoState === "stalled"
    readonly property string subline: stalled ? qsTr("No video") : waiting ? qsTr("Waiting…")
                                      : !usb ? system : system === "" ? "USB" : system + " · USB"

    signal activated()
    signal renamed(string name)
    signal menuRequested(Item field, real sceneX, real sceneY)
    signal menuAsked(Item field) // by a key

    objectName: "phoneCard"
    implicitWidth: 116
    implicitHeight: 118
    ringRadius: 12
    ringGap: -6
    Accessible.role: Accessible.RadioButton
    Accessible.name: name
    Accessible.description: subline
    Accessible.checkable: true
    Accessible.checked: active

    onClicked: if (!editing) {
        activated()
    }
    onDoubleClicked: beginRename()
    Keys.onPressed: event => {
        if (event.key === Qt.Key_F2) {
            beginRename()
            event.accepted = true
        }
    }

    function beginRename(): void {
        if (!editing) {
            editing = true
            field.begin(name)
        }
    }

    function commitRename(): void {
        if (editing) {
            editing = false // first: hiding the field takes its focus, which commits, too
            renamed(field.text)
        }
    }

    function cancelRename(): void {
        editing = false
    }

    background: Rectangle {
        radius: 12
        color: root.active ? Theme.accentSoft : root.hovered ? Theme.raisedHover : Theme.raised
        border.width: root.active ? 2 : 1
        border.color: root.active ? Theme.accent : Theme.hair
    }

    contentItem: Item {
        HoverHandler { id: hover }

        PhoneGlyph {
            anchors.horizontalCenter: parent.horizontalCenter
            y: 12
            ink: root.active ? Theme.accent : Theme.faint
            bars: root.stalled
            dots: root.waiting
        }

        LiveBadge {
            x: 7
            y: 7
            visible: root.active && !root.stalled && !root.waiting
        }

        ElidedText {
            x: 8
            y: 78
            width: parent.width - 16
            visible: !root.editing
            text: root.name
            hinted: root.visualFocus
            font.pixelSize: Theme.fsCaption
            font.weight: Font.DemiBold
            horizontalAlignment: Text.AlignHCenter
        }

        ElidedText {
            x: 8
            y: 96
            width: parent.width - 16
            text: root.subline
            color: root.stalled ? Theme.textc : Theme.muted
            font.pixelSize: Theme.fsEyebrow
            horizontalAlignment: Text.AlignHCenter
        }

        RenameField {
            id: field

            anchors.fill: parent
            visible: root.editing
            enabled: visible // hidden, it must not keep the focus
            onFocusLost: root.commitRename()
            onAccepted: {
                root.commitRename()
                root.forceActiveFocus(Qt.TabFocusReason)
            }
            onCancelled: {
                root.cancelRename()
                root.forceActiveFocus(Qt.TabFocusReason)
            }
            onMenuRequested: (input, x, y) => root.menuRequested(input, x, y)
            onMenuAsked: input => root.menuAsked(input)
        }

        RenameButton {
            x: parent.width - width - 7
            y: 7
            visible: !root.editing
            phoneName: root.name
            revealed: hover.hovered || root.visualFocus
            onClicked: root.beginRename()
        }
    }
}
