pragma ComponentBehavior: Bound

import QtQuick
import Pevrix

// The dialogs over the window's card.
Item {
    id: root

    required property var window // the Main that they belong to

    z: 200

    // "settings", "language" or "addphone"; any other name opens nothing.
    function open(name: string): void {
        switch (name) {
        case "settings": settings.open(); break
        case "language": language.open(); break
        case "addphone": addPhone.open(); break
        }
    }

    LazyDialog {
        id: settings

        sourceComponent: SettingsDialog {
            objectName: "settings"
            theme: root.window
            app: root.window.controller
            homeUrl: root.window.updates.siteUrl
            languageName: root.window.nameOfLanguage(root.window.languageCode)
            onLanguageClicked: {
                close()
                language.open()
            }
        }
    }

    LazyDialog {
        id: language

        sourceComponent: LanguageDialog {
            objectName: "language"
            theme: root.window
            languages: root.window.langList
            current: root.window.languageCode
            onPicked: code => root.window.translator.setLanguage(code)
        }
    }

    LazyDialog {
        id: addPhone

        sourceComponent: AddPhoneDialog {
            objectName: "addPhone"
            theme: root.window
            qrDataUrl: root.window.controller.qrDataUrl
            pairAddress: root.window.controller.pairAddress
        }
    }
}
