import QtQuick

// The dialog shell: a card over a dimmed window, with a title, a close button and a body that
// scrolls when it does not fit. Children go into the body, one below the other.
//
// While it is open, Tab stays inside; closing gives the focus back to where it was.
Item {
    id: root

    property var theme: null // the window, for its colours; without one the light colours
    property bool shown: false
    property bool covered: false // by another dialog or a window, which the keys are for
    property string title: ""
    property int panelWidth: 360
    property int panelMaxHeight: 620
    property int bodySpacing: 18
    default property alias body: column.data

    readonly property int padding: 20
    readonly property int headerHeight: 24
    readonly property int headerGap: title === "" ? 4 : 12
    readonly property int ringRoom: 4 // around the body, so that focus rings are not clipped
    property Item returnFocus: null
    property bool returnRing: false // the keyboard had put the focus there

    anchors.fill: parent
    z: 200
    visible: opacity > 0.001
    opacity: shown ? 1 : 0

    Accessible.role: Accessible.Dialog
    Accessible.name: title

    function open(): void {
        shown = true
    }

    function close(): void {
        shown = false
    }

    function takeFocus(): void {
        if (shown && visible) {
            card.forceActiveFocus()
        }
    }

    function focusFirst(): void {
        closeButton.forceActiveFocus(Qt.TabFocusReason)
    }

    function focusLast(): void {
        end.nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
    }

    onShownChanged: {
        if (shown) {
            returnFocus = Window.activeFocusItem
            returnRing = (returnFocus as Clickable)?.visualFocus ?? false
            scroller.contentY = 0
            takeFocus()
        } else if (returnFocus !== null) {
            returnFocus.forceActiveFocus(returnRing ? Qt.TabFocusReason : Qt.OtherFocusReason)
            returnFocus = null
        }
    }

    onVisibleChanged: takeFocus() // unseen it cannot

    Tint {
        id: tint

        theme: root.theme
    }

    Behavior on opacity { enabled: !Motion.still; NumberAnimation { duration: 130; easing.type: Easing.OutCubic } }

    Shortcut {
        sequence: "Escape"
        enabled: root.shown && !root.covered
        onActivated: root.close()
    }

    Rectangle {
        anchors.fill: parent
        radius: tint.cardRadius
        color: tint.dark ? "#aa000000" : "#55000000"
    }

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        acceptedButtons: Qt.AllButtons
        onClicked: root.close()
        onWheel: wheel => wheel.accepted = true
    }

    // Going back from the first control leads to the last one. Its counterpart is at the end.
    Item {
        activeFocusOnTab: root.shown
        onActiveFocusChanged: if (activeFocus) {
            root.focusLast()
        }
    }

    Rectangle {
        id: card
        objectName: "card"

        readonly property real chrome: 2 * root.padding + root.headerHeight + root.headerGap

        anchors.centerIn: parent
        width: root.panelWidth
        height: Math.min(chrome + column.height, Math.max(160, root.Window.height - 48),
                         root.panelMaxHeight)
        radius: 14
        color: tint.surface
        border.color: tint.hair
        scale: root.shown ? 1 : 0.96

        Keys.onTabPressed: root.focusFirst()
        Keys.onBacktabPressed: root.focusLast()

        Behavior on scale { enabled: !Motion.still; NumberAnimation { duration: 130; easing.type: Easing.OutCubic } }

        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.AllButtons
            onPressed: card.forceActiveFocus()
        }

        ElidedText {
            anchors {
                left: parent.left
                leftMargin: root.padding
                right: closeButton.left
                rightMargin: Theme.sp2
                verticalCenter: closeButton.verticalCenter
            }
            visible: root.title !== ""
            text: root.title
            color: tint.textc
            font.pixelSize: Theme.fsTitle
            font.weight: Font.DemiBold
        }

        Clickable {
            id: closeButton

            x: parent.width - root.padding - width
            y: root.padding + (root.headerHeight - height) / 2
            width: 26
            height: 26
            ringRadius: 7
            Accessible.name: qsTr("Close")
            onClicked: root.close()

            background: Rectangle {
                radius: 7
                color: tint.raised
                visible: closeButton.hovered
            }
            contentItem: CrossGlyph { color: tint.muted }
        }

        // The bar lies in a gutter of 14 beside the column, inside the card's padding.
        ScrollBody {
            id: scroller
            objectName: "scroller"

            x: root.padding - root.ringRoom
            y: root.padding + root.headerHeight + root.headerGap - root.ringRoom
            width: column.width + root.ringRoom + 14
            height: card.height - card.chrome + 2 * root.ringRoom
            contentHeight: column.height + 2 * root.ringRoom

            Column {
                id: column

                x: root.ringRoom
                y: root.ringRoom
                width: root.panelWidth - 2 * root.padding
                spacing: root.bodySpacing
            }
        }

        Item {
            id: end

            activeFocusOnTab: root.shown
            onActiveFocusChanged: if (activeFocus) {
                root.focusFirst()
            }
        }
    }
}
