#include "KeelbrightCore/platform/files/FileError.h"

#include <cerrno>
#include <gtest/gtest.h>

namespace keelbright {
namespace {

using Operation = FileError::Operation;

constexpr bool keepsProgramsOut = true;

std::string description(Operation operation, int code, bool systemKeepsProgramsOut)
{
    return FileError::fromCode(operation, QStringLiteral("Mail"), code)
        .description(systemKeepsProgramsOut)
        .toStdString();
}

TEST(FileError, aFolderThatMayNotBeReadSaysHowItMay)
{
    const std::string allowed = " Allow it in System Settings, under Privacy & Security, Full Disk Access.";
    EXPECT_EQ(description(Operation::opened, EPERM, keepsProgramsOut),
              "“Mail” could not be opened: you don't have permission." + allowed);
    EXPECT_EQ(description(Operation::read, EPERM, keepsProgramsOut),
              "“Mail” could not be read: you don't have permission." + allowed);
    EXPECT_EQ(description(Operation::listed, EPERM, keepsProgramsOut),
              "“Mail” could not be listed completely: you don't have permission." + allowed);
}

TEST(FileError, noConsentIsAskedForWhereItWouldNotHelp)
{
    EXPECT_EQ(description(Operation::opened, EPERM, false),
              "“Mail” could not be opened: you don't have permission.");
    EXPECT_EQ(description(Operation::opened, EACCES, keepsProgramsOut),
              "“Mail” could not be opened: you don't have permission.");
    EXPECT_EQ(description(Operation::written, EPERM, keepsProgramsOut),
              "“Mail” could not be written: you don't have permission.");
    const FileError gone{Operation::read, QStringLiteral("Mail"), FileError::Reason::destinationGone};
    EXPECT_EQ(gone.description(keepsProgramsOut), gone.description(false));
}

TEST(FileError, aFileInTheCloudSaysThatItIsNotHere)
{
    EXPECT_EQ(description(Operation::copied, EDEADLK, false),
              "“Mail” could not be copied: it is not on this Mac.");
}

} // namespace
} // namespace keelbright
