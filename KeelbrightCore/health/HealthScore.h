#pragma once

#include <QList>
#include <QString>

namespace keelbright {

/// The state of the machine as one number and one letter.
struct HealthScore
{
    enum class Grade { a, b, c, d, f };

    Grade grade;
    int points;               ///< the sum of the three parts, 0 to 100
    QString detail;           ///< one to three sentences
    qint64 diskUsedBytes;     ///< never below 0
    qint64 diskTotalBytes;    ///< of the file system of the home folder; 0 when unknown
    qint64 junkEstimateBytes; ///< narrower than what the junk scanner finds
    int backupPoints;         ///< 0 to 40
    int diskPoints;           ///< 0 to 30
    int junkPoints;           ///< 0 to 30

    /// Total minus used.
    [[nodiscard]] qint64 diskFreeBytes() const { return diskTotalBytes - diskUsedBytes; }

    /// Used over total; 0 when the total is unknown.
    [[nodiscard]] double diskUsedFraction() const;
    [[nodiscard]] QString diskUsedFormatted() const;
    [[nodiscard]] QString diskTotalFormatted() const;
    [[nodiscard]] QString diskFreeFormatted() const;
    [[nodiscard]] QString junkFormatted() const;

    [[nodiscard]] static const QList<Grade>& allGrades();
    /// The letter.
    [[nodiscard]] static QString rawValue(Grade grade);
    [[nodiscard]] static QString headline(Grade grade);

    friend bool operator==(const HealthScore&, const HealthScore&) = default;
};

} // namespace keelbright
