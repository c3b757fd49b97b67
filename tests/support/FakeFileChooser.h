#pragma once

#include "Keelbright/state/FileChooser.h"

#include <QList>
#include <gtest/gtest.h>
#include <optional>
#include <utility>

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

    /// The next request stays open until `confirm` is called.
    void willStayOpen() { m_answers.append(FileURL()); }

    /// Confirms the chooser that stayed open.
    void confirm(const FileURL& url)
    {
        ASSERT_TRUE(m_open != nullptr) << "no file chooser is open";
        std::exchange(m_open, nullptr)(url);
    }

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
        const std::optional<FileURL> url = m_answers.takeFirst();
        if (url == FileURL())
            m_open = chosen;
        else if (url)
            chosen(*url);
    }

    QList<std::optional<FileURL>> m_answers; ///< an empty one where the chooser stays open
    std::function<void(const FileURL&)> m_open;
};

} // namespace keelbright::testing
