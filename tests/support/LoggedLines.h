#pragma once

#include <QLoggingCategory>
#include <QStringList>

namespace keelbright::testing {

/// What the categories of the program print while this lives, each line as "category: text". `rules`
/// are those of `QLoggingCategory::setFilterRules`. Where the environment has rules of its own, those
/// come first. One at a time; lines of one thread only.
class LoggedLines
{
public:
    explicit LoggedLines(const QString& rules)
    {
        s_lines.clear();
        m_previous =
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext& context, const QString& message) {
                if (QByteArrayView(context.category).startsWith("keelbright."))
                    s_lines.append(QString::fromUtf8(context.category) + QStringLiteral(": ") + message);
            });
        QLoggingCategory::setFilterRules(rules);
    }

    ~LoggedLines()
    {
        QLoggingCategory::setFilterRules({});
        qInstallMessageHandler(m_previous);
    }

    LoggedLines(const LoggedLines&) = delete;
    LoggedLines& operator=(const LoggedLines&) = delete;

    /// All lines since the last call.
    [[nodiscard]] static QStringList take() { return std::exchange(s_lines, {}); }

private:
    static inline QStringList s_lines;
    QtMessageHandler m_previous = nullptr;
};

} // namespace keelbright::testing
