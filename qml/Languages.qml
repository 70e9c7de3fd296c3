pragma Singleton

import QtQml

// The languages that the interface is offered in.
QtObject {
    readonly property list<language> list: [
        { code: "auto", name: qsTr("System default") },
        { code: "en", name: "English" },
        { code: "fr", name: "Français" },
        { code: "es", name: "Español" },
        { code: "de", name: "Deutsch" },
        { code: "it", name: "Italiano" },
        { code: "pt", name: "Português" },
        { code: "ru", name: "Русский" },
        { code: "tr", name: "Türkçe" },
        { code: "zh_CN", name: "中文 (简体)" },
        { code: "ja", name: "日本語" }
    ]

    // The code itself stands for a language that is not offered.
    function nameOf(code: string): string {
        for (let i = 0; i < list.length; ++i) {
            if (list[i].code === code) {
                return list[i].name
            }
        }
        return code
    }
}
