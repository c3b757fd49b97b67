#pragma once

#include "Keelbright/widgets/theme/Theme.h"
#include "tests/gallery/ScreenStates.h"
#include "tests/gallery/Stage.h"

#include <QStringList>
#include <QWidget>
#include <gtest/gtest.h>
#include <ostream>
#include <string>

namespace keelbright::testing {

inline void PrintTo(const ScreenState& state, std::ostream* stream)
{
    *stream << state.screen << "-" << state.name;
}

inline std::string testNameOfState(const ::testing::TestParamInfo<ScreenState>& info)
{
    const QString name = QString::fromLatin1(info.param.screen) + u'_' + QString::fromLatin1(info.param.name);
    return QString(name).replace(u'-', u'_').toStdString();
}

/// The faults that the check finds in the stage's window, in both schemes and at both sizes.
[[nodiscard]] inline std::string faultsInEveryLook(Stage& stage, QStringList (*check)(QWidget&))
{
    QStringList faults;
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
        for (const QSize& size : stage.sizes()) {
            Theme::instance().setScheme(scheme);
            stage.window().resize(size);
            Stage::turnFrames();
            const QString look =
                scheme == ColorScheme::light ? QStringLiteral("light") : QStringLiteral("dark");
            for (const QString& fault : check(stage.window()))
                faults.append(
                    QStringLiteral("%1, %2 wide: %3").arg(look, QString::number(size.width()), fault));
        }
    }
    return faults.join(u'\n').toStdString();
}

} // namespace keelbright::testing
