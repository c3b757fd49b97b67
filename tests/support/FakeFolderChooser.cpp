#include "tests/support/FakeFolderChooser.h"

#include <gtest/gtest.h>

#include <utility>

namespace keelbright::testing {

FakeFolderChooser::~FakeFolderChooser()
{
    if (!m_expected.isEmpty())
        ADD_FAILURE() << m_expected.size() << " expected folder chooser(s) never came";
}

void FakeFolderChooser::willChoose(const QList<FileURL>& urls)
{
    m_expected.append({Behaviour::confirmed, urls});
}

void FakeFolderChooser::willBeDismissed()
{
    m_expected.append({Behaviour::dismissed, {}});
}

void FakeFolderChooser::willStayOpen()
{
    m_expected.append({Behaviour::open, {}});
}

void FakeFolderChooser::confirm(const QList<FileURL>& urls)
{
    if (!m_open) {
        ADD_FAILURE() << "no folder chooser is open";
        return;
    }
    std::exchange(m_open, nullptr)(urls);
}

void FakeFolderChooser::chooseFolders(const FolderChooserRequest& request,
                                      std::function<void(const QList<FileURL>&)> chosen)
{
    m_requests.append(request);
    if (m_expected.isEmpty()) {
        ADD_FAILURE() << "a folder chooser came unexpectedly: " << request.message.toStdString();
        return;
    }
    const Expectation expected = m_expected.takeFirst();
    if (expected.behaviour == Behaviour::confirmed)
        chosen(expected.urls);
    else if (expected.behaviour == Behaviour::open)
        m_open = std::move(chosen);
}

} // namespace keelbright::testing
