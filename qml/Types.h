#pragma once

#include "ui/FileBrowser.h"
#include "ui/FramePreview.h"
#include "ui/PhoneModel.h"
#include "ui/SoftShadow.h"
#include "ui/SystemPreferences.h"

#include <QtQmlIntegration>

namespace pevrix {

// A language of the interface, as it is offered to choose from.
struct Language
{
    Q_GADGET
    QML_VALUE_TYPE(language)
    QML_STRUCTURED_VALUE
    Q_PROPERTY(QString code MEMBER code FINAL)
    Q_PROPERTY(QString name MEMBER name FINAL)

public:
    QString code; // "auto": the system's
    QString name;
    bool operator==(const Language&) const = default;
};

struct FileBrowserType
{
    Q_GADGET
    QML_FOREIGN(pevrix::FileBrowser)
    QML_NAMED_ELEMENT(FileBrowser)
    QML_SINGLETON
};

struct FramePreviewType
{
    Q_GADGET
    QML_FOREIGN(pevrix::FramePreview)
    QML_NAMED_ELEMENT(FramePreview)
};

struct PhoneModelType
{
    Q_GADGET
    QML_FOREIGN(pevrix::PhoneModel)
    QML_NAMED_ELEMENT(PhoneModel)
};

struct SoftShadowType
{
    Q_GADGET
    QML_FOREIGN(pevrix::SoftShadow)
    QML_NAMED_ELEMENT(SoftShadow)
};

struct SystemPreferencesType
{
    Q_GADGET
    QML_FOREIGN(pevrix::SystemPreferences)
    QML_NAMED_ELEMENT(SystemPreferences)
    QML_SINGLETON
};

} // namespace pevrix
