#include "platform/AtomicFile.h"

#include "platform/Signals.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/Scoped.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>

namespace nalt {
namespace {

namespace fs = std::filesystem;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using tests::OrdinaryUser;
using tests::readFile;
using tests::ScopedCurrentFolder;
using tests::TempFolder;
using tests::writeFile;

std::vector<std::string> namesIn(const std::string& folder)
{
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder))
    names.push_back(entry.path().filename().string());
  return names;
}

bool write(AtomicFile& file, const std::string& content)
{
  return file.write(content.data(), content.size());
}

/// What a save does. Gives the error, empty if all went well.
std::string save(const std::string& path, const std::string& content)
{
  AtomicFile file(path);
  write(file, content);
  const bool committed = file.commit();
  EXPECT_EQ(committed, file.ok());
  EXPECT_EQ(committed, file.errorText().empty());
  return file.errorText();
}

int modeOf(const std::string& path)
{
  struct stat status {};
  EXPECT_EQ(lstat(path.c_str(), &status), 0) << path;
  return static_cast<int>(status.st_mode & 07777);
}

/// The umask until the end of the scope.
class ScopedUmask {
public:
  explicit ScopedUmask(mode_t mask) : before_(umask(mask)) {}
  ~ScopedUmask() { umask(before_); }
  ScopedUmask(const ScopedUmask&) = delete;
  ScopedUmask& operator=(const ScopedUmask&) = delete;

private:
  mode_t before_;
};

/// No file may grow beyond so many bytes until the end of the scope: what a full disk is, for one process.
class ScopedFileLimit {
public:
  explicit ScopedFileLimit(rlim_t bytes)
  {
    makeFailedWritesErrors();
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~ScopedFileLimit() { setrlimit(RLIMIT_FSIZE, &before_); }
  ScopedFileLimit(const ScopedFileLimit&) = delete;
  ScopedFileLimit& operator=(const ScopedFileLimit&) = delete;

private:
  rlimit before_{};
};

TEST(AtomicFile, aNewFileHoldsWhatWasWritten)
{
  const TempFolder folder;
  EXPECT_EQ(save(folder / "a.flt", "content"), "");
  EXPECT_EQ(readFile(folder / "a.flt"), "content");
  EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAre("a.flt"));
}

TEST(AtomicFile, anEmptyFileIsAFile)
{
  const TempFolder folder;
  EXPECT_EQ(save(folder / "a.flt", ""), "");
  EXPECT_EQ(readFile(folder / "a.flt"), "");
}

TEST(AtomicFile, theOldContentStandsUntilTheCommit)
{
  const TempFolder folder;
  writeFile(folder / "a.flt", "a long old content");
  AtomicFile file(folder / "a.flt");
  EXPECT_TRUE(write(file, "new"));
  EXPECT_EQ(readFile(folder / "a.flt"), "a long old content");
  EXPECT_TRUE(file.commit());
  EXPECT_EQ(readFile(folder / "a.flt"), "new");
  EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAre("a.flt"));
}

TEST(AtomicFile, withoutCommitNothingIsLeft)
{
  const TempFolder folder;
  writeFile(folder / "old.flt", "old");
  {
    AtomicFile replaced(folder / "old.flt"), made(folder / "new.flt");
    EXPECT_TRUE(write(replaced, "new"));
    EXPECT_TRUE(write(made, "new"));
    EXPECT_EQ(namesIn(folder.path()).size(), 3U);
  }
  EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAre("old.flt"));
  EXPECT_EQ(readFile(folder / "old.flt"), "old");
}

TEST(AtomicFile, piecesOfAllSizesArriveInOrder)
{
  const TempFolder folder;
  std::string expected;
  AtomicFile file(folder / "a.flt");
  const std::size_t sizes[] = {1, 0, 262143, 1, 262144, 3, 1000000, 262145, 7, 131072, 131072, 131072};
  char letter = 'a';
  for (const std::size_t size : sizes) {
    const std::string piece(size, letter++);
    EXPECT_TRUE(write(file, piece));
    expected += piece;
  }
  for (int i = 0; i < 100000; ++i) {
    const std::string piece = std::to_string(i);
    ASSERT_TRUE(write(file, piece));
    expected += piece;
  }
  EXPECT_TRUE(file.commit());
  EXPECT_TRUE(readFile(folder / "a.flt") == expected);
}

TEST(AtomicFile, aCommitIsTheEnd)
{
  const TempFolder folder;
  AtomicFile file(folder / "a.flt");
  EXPECT_TRUE(write(file, "content"));
  EXPECT_TRUE(file.commit());
  EXPECT_FALSE(write(file, "more"));
  EXPECT_FALSE(file.commit());
  EXPECT_EQ(readFile(folder / "a.flt"), "content");
}

TEST(AtomicFile, severalCanWriteSideBySideAndTheLastCommitWins)
{
  const TempFolder folder;
  AtomicFile first(folder / "a.flt"), second(folder / "a.flt");
  EXPECT_TRUE(write(first, "first"));
  EXPECT_TRUE(write(second, "second"));
  EXPECT_TRUE(second.commit());
  EXPECT_TRUE(first.commit());
  EXPECT_EQ(readFile(folder / "a.flt"), "first");
  EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAre("a.flt"));
}

TEST(AtomicFile, theCurrentFolderMayChangeMeanwhile)
{
  const TempFolder folder, other;
  const ScopedCurrentFolder scope(folder.path());
  AtomicFile file("a.flt");
  EXPECT_TRUE(write(file, "content"));
  fs::current_path(other.path());
  EXPECT_TRUE(file.commit());
  EXPECT_EQ(readFile(folder / "a.flt"), "content");
  EXPECT_THAT(namesIn(other.path()), IsEmpty());
}

TEST(AtomicFile, theLongestNamesCanBeSaved)
{
  const TempFolder folder;
  std::string umlauts = "x"; // so that the hidden file's name, if cut by bytes, would be cut within a letter
  while (umlauts.size() + 2 <= 255)
    umlauts += "\xC3\xA4";
  for (const std::string& name : {std::string(255, 'a'), umlauts}) {
    EXPECT_EQ(save(folder / name, "content"), "");
    EXPECT_EQ(readFile(folder / name), "content");
  }
  EXPECT_EQ(save(folder / std::string(256, 'a'), ""), "File name too long");
}

TEST(AtomicFile, theHiddenFileTellsWhatItBelongsTo)
{
  const TempFolder folder;
  const AtomicFile file(folder / "a.flt");
  EXPECT_THAT(namesIn(folder.path()), testing::ElementsAre(testing::MatchesRegex("\\.a\\.flt\\.[0-9a-f]+\\.tmp")));
}

// Permissions

TEST(AtomicFile, aNewFileGetsWhatTheUmaskLeaves)
{
  const TempFolder folder;
  for (const auto& [mask, mode] : {std::pair<mode_t, int>{022, 0644}, {027, 0640}, {0, 0666}, {077, 0600}}) {
    const ScopedUmask scope(mask);
    const std::string path = folder / std::to_string(mask);
    EXPECT_EQ(save(path, ""), "");
    EXPECT_EQ(modeOf(path), mode);
  }
}

TEST(AtomicFile, theTargetsPermissionsAreKept)
{
  const TempFolder folder;
  const ScopedUmask scope(077);
  for (const int mode : {0600, 0644, 0666, 0755, 0604, 0660}) {
    writeFile(folder / "a.flt", "old");
    chmod((folder / "a.flt").c_str(), static_cast<mode_t>(mode));
    EXPECT_EQ(save(folder / "a.flt", "new"), "");
    EXPECT_EQ(modeOf(folder / "a.flt"), mode);
    EXPECT_EQ(readFile(folder / "a.flt"), "new");
  }
}

TEST(AtomicFile, theHiddenFileIsNeverMoreOpenThanItsTarget)
{
  const TempFolder folder;
  const ScopedUmask scope(0);
  writeFile(folder / "a.flt", "old");
  chmod((folder / "a.flt").c_str(), 0600);
  const AtomicFile file(folder / "a.flt");
  for (const std::string& name : namesIn(folder.path()))
    EXPECT_EQ(modeOf(folder / name), 0600) << name;
}

TEST(AtomicFile, ownerAndGroupAreKeptWhereTheUserMaySetThem)
{
  if (geteuid() != 0) GTEST_SKIP() << "only root may give files away";
  const TempFolder folder;
  writeFile(folder / "a.flt", "old");
  ASSERT_EQ(chown((folder / "a.flt").c_str(), 1234, 4321), 0);
  EXPECT_EQ(save(folder / "a.flt", "new"), "");
  struct stat status {};
  ASSERT_EQ(stat((folder / "a.flt").c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, 1234U);
  EXPECT_EQ(status.st_gid, 4321U);
}

TEST(AtomicFile, aGroupThatCannotBeKeptGivesNobodyItsRights)
{
  if (geteuid() != 0) GTEST_SKIP() << "only root can make the file for this";
  const TempFolder folder;
  chmod(folder.path().c_str(), 0777);
  writeFile(folder / "a.flt", "old");
  ASSERT_EQ(chown((folder / "a.flt").c_str(), 1234, 4321), 0);
  chmod((folder / "a.flt").c_str(), 0676);
  const OrdinaryUser user;
  EXPECT_EQ(save(folder / "a.flt", "new"), "");
  EXPECT_EQ(modeOf(folder / "a.flt"), 0666) << "the group keeps what everybody has";
}

TEST(AtomicFile, theAccessListIsKept)
{
  // User 1234 may read, by an entry of its own; version 2, then tag, rights, id of each entry.
  const unsigned char list[] = {2,  0, 0, 0,                          //
                                1,  0, 6, 0, 0xFF, 0xFF, 0xFF, 0xFF,  // owner
                                2,  0, 4, 0, 0xD2, 4,    0,    0,     // user 1234
                                4,  0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF,  // group
                                16, 0, 4, 0, 0xFF, 0xFF, 0xFF, 0xFF,  // mask
                                32, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF}; // others
  constexpr const char* name = "system.posix_acl_access";
  const TempFolder folder;
  writeFile(folder / "a.flt", "old");
  if (setxattr((folder / "a.flt").c_str(), name, list, sizeof list, 0) != 0)
    GTEST_SKIP() << "this file system has no access lists";
  EXPECT_EQ(save(folder / "a.flt", "new"), "");
  unsigned char found[sizeof list] = {};
  ASSERT_EQ(getxattr((folder / "a.flt").c_str(), name, found, sizeof found), static_cast<ssize_t>(sizeof list));
  EXPECT_THAT(found, testing::ElementsAreArray(list));
  EXPECT_EQ(modeOf(folder / "a.flt"), 0640);
}

TEST(AtomicFile, theFoldersDefaultAccessListDoesNotOpenAFileThatHasNone)
{
  const unsigned char list[] = {2, 0,    0,    0,    1,    0,    7,  0, 0xFF, 0xFF, 0xFF, 0xFF, 2,    0,   7,
                                0, 0xD2, 4,    0,    0,    4,    0,  7, 0,    0xFF, 0xFF, 0xFF, 0xFF, 16,  0,
                                7, 0,    0xFF, 0xFF, 0xFF, 0xFF, 32, 0, 0,    0,    0xFF, 0xFF, 0xFF, 0xFF};
  const TempFolder folder;
  writeFile(folder / "a.flt", "old");
  chmod((folder / "a.flt").c_str(), 0660);
  if (setxattr(folder.path().c_str(), "system.posix_acl_default", list, sizeof list, 0) != 0)
    GTEST_SKIP() << "this file system has no access lists";
  EXPECT_EQ(save(folder / "a.flt", "new"), "");
  EXPECT_LT(getxattr((folder / "a.flt").c_str(), "system.posix_acl_access", nullptr, 0), 0);
  EXPECT_EQ(modeOf(folder / "a.flt"), 0660);
}

// Symbolic links

TEST(AtomicFile, aLinkStaysAndItsTargetIsReplaced)
{
  const TempFolder folder;
  fs::create_directory(folder / "there");
  writeFile(folder / "there/a.flt", "old");
  fs::create_symlink("there/a.flt", folder / "link.flt");
  EXPECT_EQ(save(folder / "link.flt", "new"), "");
  EXPECT_EQ(fs::read_symlink(folder / "link.flt"), "there/a.flt");
  EXPECT_FALSE(fs::is_symlink(folder / "there/a.flt"));
  EXPECT_EQ(readFile(folder / "there/a.flt"), "new");
  EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAre("there", "link.flt"));
  EXPECT_THAT(namesIn(folder / "there"), UnorderedElementsAre("a.flt"));
}

TEST(AtomicFile, aChainOfLinksIsFollowedFromFolderToFolder)
{
  const TempFolder folder;
  fs::create_directories(folder / "one/two");
  writeFile(folder / "one/a.flt", "old");
  fs::create_symlink("../a.flt", folder / "one/two/relative.flt");
  fs::create_symlink(folder / "one/two/relative.flt", folder / "absolute.flt");
  const ScopedCurrentFolder scope(folder / "one");
  EXPECT_EQ(save("../absolute.flt", "new"), "");
  EXPECT_EQ(readFile(folder / "one/a.flt"), "new");
  EXPECT_TRUE(fs::is_symlink(folder / "absolute.flt"));
  EXPECT_TRUE(fs::is_symlink(folder / "one/two/relative.flt"));
}

TEST(AtomicFile, aLinkToNothingMakesWhatItLeadsTo)
{
  const TempFolder folder;
  fs::create_directory(folder / "there");
  fs::create_symlink("there/a.flt", folder / "second.flt");
  fs::create_symlink("second.flt", folder / "first.flt");
  EXPECT_EQ(save(folder / "first.flt", "new"), "");
  EXPECT_EQ(readFile(folder / "there/a.flt"), "new");
  EXPECT_TRUE(fs::is_symlink(folder / "first.flt"));
  EXPECT_TRUE(fs::is_symlink(folder / "second.flt"));
}

TEST(AtomicFile, aLinkIntoAMissingFolderIsAnError)
{
  const TempFolder folder;
  fs::create_symlink("gone/a.flt", folder / "second.flt");
  fs::create_symlink("second.flt", folder / "first.flt");
  EXPECT_EQ(save(folder / "first.flt", "new"), "No such file or directory");
  EXPECT_TRUE(fs::is_symlink(folder / "first.flt"));
  EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAre("first.flt", "second.flt"));
}

TEST(AtomicFile, linksInACircleAreAnError)
{
  const TempFolder folder;
  fs::create_symlink("b.flt", folder / "a.flt");
  fs::create_symlink("a.flt", folder / "b.flt");
  fs::create_symlink("self.flt", folder / "self.flt");
  EXPECT_EQ(save(folder / "a.flt", "new"), "Too many levels of symbolic links");
  EXPECT_EQ(save(folder / "self.flt", "new"), "Too many levels of symbolic links");
  EXPECT_EQ(namesIn(folder.path()).size(), 3U);
}

// Refusals

TEST(AtomicFile, whatNamesNoFileIsAnError)
{
  const TempFolder folder;
  writeFile(folder / "file", "old");
  EXPECT_EQ(save("", ""), "No such file or directory");
  EXPECT_EQ(save(folder / "gone/a.flt", ""), "No such file or directory");
  EXPECT_EQ(save(folder / "file/a.flt", ""), "Not a directory");
  EXPECT_EQ(save(folder.path(), ""), "Is a directory");
  EXPECT_EQ(save(folder / "", ""), "Is a directory");
  EXPECT_EQ(save(folder / ".", ""), "Is a directory");
  EXPECT_EQ(save("/", ""), "Is a directory");
  EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAre("file"));
}

TEST(AtomicFile, aFolderThatMayNotBeWrittenIsAnErrorAndKeepsTheOldFile)
{
  const TempFolder folder;
  writeFile(folder / "a.flt", "old");
  chmod((folder / "a.flt").c_str(), 0666);
  chmod(folder.path().c_str(), 0555);
  {
    const OrdinaryUser user;
    EXPECT_EQ(save(folder / "a.flt", "new"), "Permission denied");
    EXPECT_EQ(save(folder / "b.flt", "new"), "Permission denied");
  }
  EXPECT_EQ(readFile(folder / "a.flt"), "old");
  EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAre("a.flt"));
}

TEST(AtomicFile, aWriteProtectedFileIsAnErrorAndStays)
{
  const TempFolder folder;
  chmod(folder.path().c_str(), 0777);
  writeFile(folder / "a.flt", "old");
  chmod((folder / "a.flt").c_str(), 0444);
  {
    const OrdinaryUser user;
    EXPECT_EQ(save(folder / "a.flt", "new"), "Permission denied");
  }
  EXPECT_EQ(readFile(folder / "a.flt"), "old");
  EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAre("a.flt"));
}

TEST(AtomicFile, aFolderThatMayNotBeReadCanBeSavedInto)
{
  const TempFolder folder;
  chmod(folder.path().c_str(), 0333);
  {
    const OrdinaryUser user;
    EXPECT_EQ(save(folder / "a.flt", "new"), "");
  }
  EXPECT_EQ(readFile(folder / "a.flt"), "new");
}

TEST(AtomicFile, aTargetThatBecomesAFolderMeanwhileIsAnError)
{
  const TempFolder folder;
  AtomicFile file(folder / "a.flt");
  EXPECT_TRUE(write(file, "new"));
  fs::create_directory(folder / "a.flt");
  EXPECT_FALSE(file.commit());
  EXPECT_EQ(file.errorText(), "Is a directory");
  EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAre("a.flt"));
}

// No room

TEST(AtomicFile, aDiskThatFillsUpKeepsTheOldFile)
{
  const TempFolder folder;
  writeFile(folder / "a.flt", "old");
  {
    const ScopedFileLimit limit(1000000);
    EXPECT_EQ(save(folder / "a.flt", std::string(999999, 'x') + std::string(2, 'y')), "File too large");
    EXPECT_EQ(save(folder / "b.flt", std::string(2000000, 'x')), "File too large");
  }
  EXPECT_EQ(readFile(folder / "a.flt"), "old");
  EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAre("a.flt"));
}

TEST(AtomicFile, aFailureInTheBufferShowsAtTheCommit)
{
  const TempFolder folder;
  writeFile(folder / "a.flt", "old");
  const ScopedFileLimit limit(10);
  AtomicFile file(folder / "a.flt");
  EXPECT_TRUE(write(file, "more than ten bytes"));
  EXPECT_FALSE(file.commit());
  EXPECT_EQ(file.errorText(), "File too large");
  EXPECT_EQ(readFile(folder / "a.flt"), "old");
  EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAre("a.flt"));
}

TEST(AtomicFile, afterAFailureNothingSucceeds)
{
  const TempFolder folder;
  AtomicFile file(folder / "a.flt");
  {
    const ScopedFileLimit limit(10);
    EXPECT_FALSE(write(file, std::string(1000000, 'x')));
  }
  EXPECT_FALSE(write(file, "small"));
  EXPECT_FALSE(file.commit());
  EXPECT_EQ(file.errorText(), "File too large") << "the first failure is told";
  EXPECT_THAT(namesIn(folder.path()), IsEmpty());
}

// Devices and pipes

TEST(AtomicFile, aDeviceIsWrittenDirectlyAndStaysOne)
{
  EXPECT_EQ(save("/dev/null", std::string(1000000, 'x')), "");
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST(AtomicFile, aFullDeviceIsAnErrorAndStaysOne)
{
  if (!fs::is_character_file("/dev/full")) GTEST_SKIP() << "this system has no /dev/full";
  EXPECT_EQ(save("/dev/full", "x"), "No space left on device");
  EXPECT_EQ(save("/dev/full", std::string(1000000, 'x')), "No space left on device");
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST(AtomicFile, aLinkToADeviceWritesToTheDevice)
{
  const TempFolder folder;
  fs::create_symlink("/dev/null", folder / "a.flt");
  EXPECT_EQ(save(folder / "a.flt", "x"), "");
  EXPECT_TRUE(fs::is_symlink(folder / "a.flt"));
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST(AtomicFile, aPipeIsWrittenDirectly)
{
  const TempFolder folder;
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  const Descriptor reader(open((folder / "pipe").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  EXPECT_EQ(save(folder / "pipe", "content"), "");
  char received[16] = {};
  EXPECT_EQ(read(reader.number(), received, sizeof received), 7);
  EXPECT_STREQ(received, "content");
  EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
}

TEST(AtomicFile, aPipeThatNobodyReadsIsAnErrorAndNobodyWaits)
{
  const TempFolder folder;
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(save(folder / "pipe", "content"), "No such device or address");
}

TEST(AtomicFile, aPipeWhoseReaderLeavesIsAnErrorAndNotTheEnd)
{
  makeFailedWritesErrors();
  const TempFolder folder;
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  Descriptor reader(open((folder / "pipe").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  AtomicFile file(folder / "pipe");
  EXPECT_TRUE(write(file, "content"));
  reader.close();
  EXPECT_FALSE(file.commit());
  EXPECT_EQ(file.errorText(), "Broken pipe");
}

TEST(AtomicFile, standardOutputCanBeNamed)
{
  // /dev/stdout leads to a pipe by a link that no path stands behind.
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const Descriptor reader(ends[0]), writer(ends[1]);
  EXPECT_EQ(save("/proc/self/fd/" + std::to_string(writer.number()), "content"), "");
  char received[16] = {};
  EXPECT_EQ(read(reader.number(), received, sizeof received), 7);
  EXPECT_STREQ(received, "content");
}

} // namespace
} // namespace nalt
