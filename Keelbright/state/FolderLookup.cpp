#include "Keelbright/state/FolderLookup.h"

#include "Keelbright/state/Delivery.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/TaskPools.h"

#include <utility>

namespace keelbright {

std::optional<bool> FolderLookup::isFolder(const QUuid& id, const FileURL& url)
{
    const auto known = m_answers.constFind(id);
    if (known != m_answers.constEnd())
        return *known;
    m_waiting.insert(id, url);
    // One job asks for all rows of a frame.
    if (!m_isAsking) {
        m_isAsking = true;
        QMetaObject::invokeMethod(this, &FolderLookup::askNext, Qt::QueuedConnection);
    }
    return std::nullopt;
}

void FolderLookup::forget()
{
    m_answers.clear();
    m_waiting.clear();
    ++m_generation;
}

FolderLookup::Answers FolderLookup::ask(const Questions& questions)
{
    const FileManager& fileManager = FileManager::defaultManager();
    Answers answers;
    for (auto question = questions.begin(); question != questions.end(); ++question)
        answers.insert(question.key(), fileManager.fileExists(question.value()).isDirectory);
    return answers;
}

void FolderLookup::askNext()
{
    const Questions questions = std::exchange(m_waiting, {});
    m_isAsking = !questions.isEmpty();
    if (!m_isAsking)
        return;
    const auto lookUp = [questions] { return ask(questions); };
    deliver(TaskPools::runApart(TaskPools::Priority::userInitiated, lookUp), this,
            [this, generation = m_generation](const Answers& answers) {
                if (generation == m_generation) {
                    m_answers.insert(answers);
                    // Asked for again in the meantime.
                    for (auto answer = answers.begin(); answer != answers.end(); ++answer)
                        m_waiting.remove(answer.key());
                    Q_EMIT found();
                }
                askNext();
            });
}

} // namespace keelbright
