import QtQuick

// The name of a phone while it is edited. Covers the whole card, so that a click anywhere on the
// card goes to the text.
MouseArea {
    id: root

    readonly property string text: input.text

    signal accepted()
    signal cancelled()
    signal focusLost()
    signal menuRequested(Item field, real sceneX, real sceneY)
    signal menuAsked(Item field) // by a key

    acceptedButtons: Qt.AllButtons
    hoverEnabled: true
    onPressed: input.forceActiveFocus()

    function begin(name: string): void {
        input.text = name
        input.forceActiveFocus()
        input.selectAll()
    }

    Rectangle {
        anchors { fill: input; margins: -3; leftMargin: -6; rightMargin: -6 }
        radius: 5
        color: Theme.inputBg
        border.color: Theme.accentStrong
    }

    TextInput {
        id: input

        objectName: "nameField"
        x: 13
        y: 78
        width: parent.width - 2 * x
        maximumLength: 40
        selectByMouse: true
        clip: true
        color: Theme.textc
        selectionColor: Theme.accentStrong
        selectedTextColor: Theme.accentInk
        font.pixelSize: Theme.fsCaption
        font.weight: Font.DemiBold
        horizontalAlignment: TextInput.AlignHCenter

        Accessible.role: Accessible.EditableText
        Accessible.name: qsTr("Name of the phone")

        // Not onAccepted: the key would go on to the card, for which it is a click.
        Keys.onReturnPressed: root.accepted()
        Keys.onEnterPressed: root.accepted()
        Keys.onEscapePressed: root.cancelled()
        Keys.onMenuPressed: root.menuAsked(input)
        Keys.onPressed: event => {
            if (event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier) {
                root.menuAsked(input)
                event.accepted = true
            }
        }
        onActiveFocusChanged: if (!activeFocus) {
            root.focusLost()
        }

        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.RightButton
            cursorShape: Qt.IBeamCursor
            onPressed: mouse => {
                const scene = mapToItem(null, mouse.x, mouse.y)
                root.menuRequested(input, scene.x, scene.y)
            }
        }
    }
}
