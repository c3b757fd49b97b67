#pragma once

#include "Keelbright/widgets/Card.h"

namespace keelbright {

struct BackupManifest;

/// Shows the machine that a manifest describes.
class ManifestSummary : public RowList
{
    Q_OBJECT

public:
    explicit ManifestSummary(const BackupManifest& manifest, QWidget* parent = nullptr);

private:
    void addFact(const QString& label, const QString& value);
    void addDotfiles(const BackupManifest& manifest);
    void addApps(const BackupManifest& manifest);
};

} // namespace keelbright
