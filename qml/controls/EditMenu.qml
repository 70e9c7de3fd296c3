pragma ComponentBehavior: Bound

import QtQuick

// The right-click menu of text fields, one for the whole window. It never takes the focus: a field
// that commits when it loses the focus is not committed by opening its menu. So the keys that move in
// it are shortcuts of the window for as long as it is shown.
Item {
    id: root

    property var theme: null // the window, for its colours; without one the light colours
    property TextInput target: null // the text input that it serves
    property bool shown: false

    readonly property bool hasSelection: target !== null && target.selectedText !== ""
    readonly property list<EditMenuRow> actions: [cut, copy, paste, selectAll]
    property int current: -1 // the action that Enter runs
    readonly property int edge: 4 // kept free between the panel and the window's sides

    anchors.fill: parent
    z: 400
    visible: shown

    function openFor(field: Item, sceneX: real, sceneY: real): void {
        target = field as TextInput
        field.forceActiveFocus()
        const point = mapFromItem(null, sceneX, sceneY)
        panel.x = Math.max(edge, Math.min(point.x, width - panel.width - edge))
        panel.y = Math.max(edge, Math.min(point.y, height - panel.height - edge))
        current = -1
        shown = true
    }

    // At the field's cursor, with an action chosen.
    function openByKey(field: Item): void {
        const input = field as TextInput
        const cursor = input.cursorRectangle
        const point = input.mapToItem(null, cursor.x, cursor.y + cursor.height)
        openFor(field, point.x, point.y)
        step(1)
    }

    // Round and round among the actions that are possible.
    function step(by: int): void {
        for (let i = 1; i <= actions.length; ++i) {
            const next = (current + by * i + 2 * actions.length) % actions.length
            if (actions[next].active) {
                current = next
                root.Accessible.announce(actions[next].label)
                return
            }
        }
    }

    function close(): void {
        shown = false
    }

    function run(action: string): void {
        switch (action) {
        case "cut": target.cut(); break
        case "copy": target.copy(); break
        case "paste": target.paste(); break
        case "selectAll": target.selectAll(); break
        }
        close()
    }

    Tint {
        id: tint

        theme: root.theme
    }

    Shortcut {
        sequence: "Escape"
        enabled: root.shown
        onActivated: root.close()
    }

    Shortcut {
        sequence: "Down"
        enabled: root.shown
        onActivated: root.step(1)
    }

    Shortcut {
        sequence: "Up"
        enabled: root.shown
        onActivated: root.step(-1)
    }

    Shortcut {
        sequences: ["Return", "Enter"]
        enabled: root.shown
        onActivated: {
            if (root.current >= 0) {
                root.run(root.actions[root.current].action)
            } else {
                root.close()
            }
        }
    }

    Connections {
        target: root.target

        function onActiveFocusChanged(): void {
            if (!root.target.activeFocus) {
                root.close()
            }
        }
    }

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        acceptedButtons: Qt.AllButtons
        onPressed: root.close()
        onWheel: wheel => wheel.accepted = true
    }

    Shadow {
        anchors.fill: panel
        radius: panel.radius
        color: panel.color
        shadowColor: "#40000000"
        blur: 0.5
    }

    Rectangle {
        id: panel

        objectName: "panel"
        width: 176
        height: rows.height + 10
        radius: 7
        color: tint.surface
        border.width: 1
        border.color: tint.hair
        Accessible.role: Accessible.PopupMenu
        Accessible.name: qsTr("Edit")

        MouseArea { // between the rows: part of the panel
            anchors.fill: parent
            acceptedButtons: Qt.AllButtons
        }

        Column {
            id: rows

            anchors { left: parent.left; right: parent.right; top: parent.top; margins: 5 }

            EditMenuRow {
                id: cut

                ink: tint.textc
                faded: tint.muted
                hoverColor: tint.raised
                chosen: root.actions[root.current] === this
                action: "cut"
                label: qsTr("Cut")
                keys: "Ctrl+X"
                active: root.hasSelection && !root.target.readOnly
                onTriggered: root.run(action)
            }

            EditMenuRow {
                id: copy

                ink: tint.textc
                faded: tint.muted
                hoverColor: tint.raised
                chosen: root.actions[root.current] === this
                action: "copy"
                label: qsTr("Copy")
                keys: "Ctrl+C"
                active: root.hasSelection
                onTriggered: root.run(action)
            }

            EditMenuRow {
                id: paste

                ink: tint.textc
                faded: tint.muted
                hoverColor: tint.raised
                chosen: root.actions[root.current] === this
                action: "paste"
                label: qsTr("Paste")
                keys: "Ctrl+V"
                active: root.target !== null && root.target.canPaste
                onTriggered: root.run(action)
            }

            Item {
                width: parent.width
                height: 7

                Rectangle {
                    anchors.verticalCenter: parent.verticalCenter
                    width: parent.width
                    height: 1
                    color: tint.hair
                }
            }

            EditMenuRow {
                id: selectAll

                ink: tint.textc
                faded: tint.muted
                hoverColor: tint.raised
                chosen: root.actions[root.current] === this
                action: "selectAll"
                label: qsTr("Select all")
                keys: "Ctrl+A"
                active: root.target !== null && root.target.text !== ""
                onTriggered: root.run(action)
            }
        }
    }
}
