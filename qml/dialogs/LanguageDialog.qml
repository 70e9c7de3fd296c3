pragma ComponentBehavior: Bound

import QtQuick

// The languages to choose from.
Modal {
    id: root

    required property string current // code

    signal picked(string code)

    title: qsTr("Language")
    panelWidth: 320
    bodySpacing: 6

    Repeater {
        model: Languages.list

        Clickable {
            id: row

            required property language modelData
            readonly property bool selected: modelData.code === root.current

            width: parent.width
            height: 36
            ringRadius: 9
            Accessible.role: Accessible.RadioButton
            Accessible.name: modelData.name
            Accessible.checkable: true
            Accessible.checked: selected
            onClicked: {
                root.close() // first: another language makes this row anew
                root.picked(modelData.code)
            }

            background: Rectangle {
                radius: 9
                color: row.selected ? Theme.accent : Qt.alpha(Theme.raised, row.hovered ? 1 : 0)
                border.color: row.selected ? Theme.accent : Theme.hair
            }
            contentItem: ElidedText {
                text: row.modelData.name
                leftPadding: 12
                rightPadding: 12
                color: row.selected ? Theme.accentInk : Theme.textc
                font.weight: row.selected ? Font.DemiBold : Font.Normal
                verticalAlignment: Text.AlignVCenter
            }
        }
    }
}
