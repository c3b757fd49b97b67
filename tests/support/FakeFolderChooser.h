#pragma once

#include "Keelbright/state/FolderChooser.h"

namespace keelbright::testing {

/// A folder chooser without a window. Each request must be announced before it comes, and each
/// that was announced must have come when the fake goes: anything else fails the test.
class FakeFolderChooser : public FolderChooser
{
public:
    FakeFolderChooser() = default;
    ~FakeFolderChooser() override;
    FakeFolderChooser(const FakeFolderChooser&) = delete;
    FakeFolderChooser& operator=(const FakeFolderChooser&) = delete;

    /// The next request is confirmed with these folders.
    void willChoose(const QList<FileURL>& urls);
    /// The next request is dismissed.
    void willBeDismissed();
    /// The next request stays open until `confirm` is called.
    void willStayOpen();
    /// Confirms the chooser that stayed open.
    void confirm(const QList<FileURL>& urls);

    /// Every request so far, in order.
    [[nodiscard]] const QList<FolderChooserRequest>& requests() const { return m_requests; }

    void chooseFolders(const FolderChooserRequest& request,
                       std::function<void(const QList<FileURL>&)> chosen) override;

private:
    enum class Behaviour { confirmed, dismissed, open };

    struct Expectation
    {
        Behaviour behaviour;
        QList<FileURL> urls;
    };

    QList<Expectation> m_expected;
    QList<FolderChooserRequest> m_requests;
    std::function<void(const QList<FileURL>&)> m_open;
};

} // namespace keelbright::testing
