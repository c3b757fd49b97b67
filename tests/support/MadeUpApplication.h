#pragma once

#include "tests/support/MadeUpFiles.h"
#include "tests/support/MadeUpPropertyList.h"

#include <optional>

namespace keelbright::testing {

/// An application: what is in its bundle, and what the metadata index holds of its use.
struct MadeUpApplication
{
    QByteArray name;
    QByteArray bundleID;
    QByteArray version = "1.0";
    PropertyListForm form = PropertyListForm::xml;
    quint32 iconColour = 0x0A6CFF;
    qint64 binaryBytes = 40'000'000;
    // What the metadata index holds; absent is "(null)".
    std::optional<int> lastUsedDaysAgo = {};
    std::optional<int> useCount = {};
    std::optional<int> addedDaysAgo = {};
};

/// Writes `<folder>/<name>.app`; `folder` is relative to the root.
void addApplication(const MadeUpFiles& files, const QByteArray& folder, const MadeUpApplication& application);

/// Writes the stand-in for "/usr/bin/mdls", which prints what `addApplication` left in a bundle.
void addMetadataTool(const MadeUpFiles& files);

} // namespace keelbright::testing
