#pragma once

#include <QString>
#include <gtest/gtest.h>

namespace keelbright::testing {

/// Everything that `action` writes to standard output.
template <typename Action> [[nodiscard]] QString standardOutputOf(Action&& action)
{
    ::testing::internal::CaptureStdout();
    action();
    return QString::fromStdString(::testing::internal::GetCapturedStdout());
}

} // namespace keelbright::testing
