#pragma once

#include "Keelbright/state/FileChooser.h"

#include <QList>
#include <gtest/gtest.h>
#include <optional>

namespace keelbright::testing {

/// A file chooser without a window. Each request must be announced before it comes, and each that
/// was announced must have come when the fake goes: anything else fails the test.
class FakeFileChooser : public FileChooser
{
public:
    FakeFileChooser() = default;

    ~FakeFileChooser() override { EXPECT_TRUE(m_answers.isEmpty()) << "a file chooser never came"; }

    FakeFileChooser(const FakeFileChooser&) = delete;
    FakeFileChooser& operator=(const FakeFileChooser&) = delete;

    /// The next request is confirmed with this file.
    void willChoose(const FileURL& url) { m_answers.append(url); }

    /// The next request is dismissed.
    void willBeDismissed() { m_answers.append(std::nullopt); }

    void chooseFile(const FileOpenRequest& request, std::function<void(const FileURL&)> chosen) override
    {
        openRequests.append(request);
        answer(chosen);
    }

    void chooseSaveLocation(const FileSaveRequest& request,
                            std::function<void(const FileURL&)> chosen) override
    {
        saveRequests.append(request);
        answer(chosen);
    }

    QList<FileOpenRequest> openRequests; ///< so far, in order
    QList<FileSaveRequest> saveRequests; ///< so far, in order

private:
    void answer(const std::function<void(const FileURL&)>& chosen)
    {
        ASSERT_FALSE(m_answers.isEmpty()) << "nobody expected a file chooser";
        if (const std::optional<FileURL> url = m_answers.takeFirst())
            chosen(*url);
    }

    QList<std::optional<FileURL>> m_answers;
};

} // namespace keelbright::testing
