// Files, folders, queries and streams over the real file system, and the statuses with which they
// fail.

#include "platform/linux/components/storage/StorageTypes.h"
#include "tests/storage/StorageFixture.h"
#include "tests/support/LogRecorder.h"

#include <abi/IVector.abi.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace wrt::test {

using namespace components;

namespace {

constexpr HRESULT kNotFound = static_cast<HRESULT>(0x80070002);
constexpr HRESULT kNoPath = static_cast<HRESULT>(0x80070003);
constexpr HRESULT kCircle = static_cast<HRESULT>(0x80070781);
constexpr HRESULT kDenied = static_cast<HRESULT>(0x80070005);
constexpr HRESULT kInvalid = static_cast<HRESULT>(0x80070057);
constexpr HRESULT kTaken = static_cast<HRESULT>(0x800700B7);
constexpr HRESULT kIsClosed = static_cast<HRESULT>(0x80000013);

using File = abi::IStorageFile;
using Folder = abi::IStorageFolder;
using Item = abi::IStorageItem;
using Query = abi::IStorageFolderQueryOperations;

HRESULT find(const fs::path &path, ComPtr<File> &file) {
  return outcome(statics<abi::IStorageFileStatics>(u"Windows.Storage.StorageFile"),
                 &abi::IStorageFileStatics::GetFileFromPathAsync, path, file.put());
}
HRESULT find(const fs::path &path, ComPtr<Folder> &folder) {
  return outcome(statics<abi::IStorageFolderStatics>(u"Windows.Storage.StorageFolder"),
                 &abi::IStorageFolderStatics::GetFolderFromPathAsync, path, folder.put());
}
/// A file or folder that is there.
template <class Kind>
ComPtr<Kind> at(const fs::path &path) {
  ComPtr<Kind> found;
  EXPECT_EQ(0, find(path, found)) << path;
  return found;
}

std::string nameOf(const auto &object) { return answer(object, &Item::get_Name); }

/// The names of the files that a member lists, joined by bars; or the status.
template <class Object, class Member, class... Arguments>
std::string names(const ComPtr<Object> &object, Member member, Arguments... arguments) {
  using Files = abi::IVectorView__1_WRTStorageFile_P;
  ComPtr<Files> files;
  if (const HRESULT status = outcome(object, member, arguments..., files.put()); status < 0)
    return "failed " + std::to_string(status);
  std::string result;
  for (unsigned i = 0; i < answer(files, &Files::get_Size); ++i)
    result += (i ? "|" : "") + nameOf(answer(files, &Files::GetAt, i));
  return result;
}
std::string namesIn(const ComPtr<Folder> &folder) {
  return names(folder, &Folder::GetFilesAsyncOverloadDefaultOptionsStartAndCount);
}
std::string query(const ComPtr<Folder> &folder, int number) {
  return names(folder, &Query::GetFilesAsyncOverloadDefaultStartAndCount, number);
}

HRESULT readStatus(const ComPtr<File> &file, std::string *content = nullptr) {
  StringHolder read;
  const HRESULT status = outcome(statics<abi::IFileIOStatics>(u"Windows.Storage.FileIO"),
                                 &abi::IFileIOStatics::ReadTextAsync, file.get(), read.put());
  if (content != nullptr)
    *content = utf8(read);
  return status;
}

const Cell lookup("storage.item.lookup.statuses", [] {
  const TemporaryFolder folder;
  folder.add("a.txt", "a");
  fs::create_directory(folder.path() / "sub");
  fs::create_symlink("a.txt", folder.path() / "link.txt");
  fs::create_symlink("nowhere", folder.path() / "dangling");
  fs::create_symlink("circle", folder.path() / "circle");
  ASSERT_EQ(0, mkfifo((folder.path() / "pipe").c_str(), 0600));
  // ".." is the kernel's: above the folder that a link leads to.
  fs::create_directories(folder.path() / "far/inner");
  fs::create_symlink("far/inner", folder.path() / "away");
  folder.add("far/b.txt", "b");
  const struct {
    const char *path;
    HRESULT asFile, asFolder;
  } cases[] = {{"a.txt", 0, kInvalid},
               {"link.txt", 0, kInvalid},
               {"sub", kInvalid, 0},
               {"sub/", kInvalid, 0},
               {"b.txt", kNotFound, kNotFound},
               {"dangling", kNotFound, kNotFound},
               {"a.txt/b", kNoPath, kNoPath},
               {"circle", kCircle, kCircle},
               {"away/.././b.txt", 0, kInvalid},
               {"away/../a.txt", kNotFound, kNotFound},
               {"none/..", kNotFound, kNotFound},
               {"pipe", kDenied, kDenied}}; // nothing may wait for a pipe
  for (const auto &[path, asFile, asFolder] : cases) {
    ComPtr<File> file;
    ComPtr<Folder> found;
    EXPECT_EQ(asFile, find(folder.path() / path, file)) << path;
    EXPECT_EQ(asFolder, find(folder.path() / path, found)) << path;
  }
  EXPECT_EQ("far", nameOf(at<Folder>(folder.path() / "sub/../away/..//.")));
  EXPECT_TRUE(at<Folder>("/"));
  ComPtr<File> none;
  EXPECT_EQ(kInvalid, find("a.txt", none)) << "relative";
  EXPECT_EQ(kInvalid, find("", none));
});

const Cell strangeNames("storage.item.names.strange", [] {
  const TemporaryFolder made;
  const std::string all[] = {"a b.txt", "broken \xFF\xC3.txt", "tab\there",
                             "\xE6\x97\xA5\xF0\x9F\x98\x80.txt"};
  for (const std::string &name : all)
    made.add(name, name);
  const auto folder = at<Folder>(made.path());
  EXPECT_EQ(all[0] + "|" + all[1] + "|" + all[2] + "|" + all[3], namesIn(folder));
  for (const std::string &name : {all[0], all[1], all[3]})
    EXPECT_EQ(name, nameOf(at<File>(made.path() / name)));
});

/// While it lives the process has no more rights than others have; does nothing for processes that
/// had no more before.
struct NoPrivileges {
  NoPrivileges() { become(65534); }
  ~NoPrivileges() { become(0); }
  static void become(uid_t user) {
    if (getuid() == 0 && seteuid(user) != 0)
      std::abort();
  }
};

const Cell permissions("storage.item.permissions.denied", [] {
  const TemporaryFolder made;
  const fs::path secret = made.add("secret.txt", "s");
  made.add("closed/inner.txt", "i");
  fs::permissions(secret, fs::perms::none);
  fs::permissions(made.path() / "closed", fs::perms::none);
  made.add("listed/inner.txt", "z");
  constexpr auto kToRead = fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read;
  constexpr auto kToGoThrough =
      fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
  fs::permissions(made.path() / "listed", kToRead);
  fs::permissions(made.path(), kToRead | kToGoThrough);
  clearLog();
  {
    const NoPrivileges noPrivileges;
    const auto folder = at<Folder>(made.path());
    const std::string denied = "failed " + std::to_string(kDenied);
    EXPECT_EQ(kDenied, readStatus(at<File>(secret))) << "it is there";
    ComPtr<File> file;
    EXPECT_EQ(kDenied, find(made.path() / "closed/inner.txt", file));
    EXPECT_EQ(denied, namesIn(at<Folder>(made.path() / "closed")));
    EXPECT_EQ(denied, namesIn(at<Folder>(made.path() / "listed"))) << "names that lead nowhere";
    EXPECT_EQ("secret.txt", query(folder, 1))
        << "a folder below that is closed does not keep the others from being listed";
    const auto log = logRecords();
    for (const char *name : {"closed", "listed"})
      EXPECT_EQ(1, std::ranges::count(log,
                                      "Left out " + (made.path() / name).string() + ": 0x80070005",
                                      &LogRecord::text));
    EXPECT_EQ(kDenied,
              outcome(folder, &Folder::CreateFileAsyncOverloadDefaultOptions, "new", file.put()));
  }
  for (const fs::path &folder : {made.path(), made.path() / "closed", made.path() / "listed"})
    fs::permissions(folder, fs::perms::owner_all);
});

const Cell vanishing("storage.item.lifetime.vanishing", [] {
  const TemporaryFolder made;
  const fs::path path = made.add("short-lived.txt", "x");
  const auto file = at<File>(path);
  fs::remove(path);
  EXPECT_EQ(kNotFound, readStatus(file));
  ComPtr<abi::IBasicProperties> properties;
  EXPECT_EQ(kNotFound, outcome(file, &Item::GetBasicPropertiesAsync, properties.put()));
  int attributes = -1;
  EXPECT_EQ(kNotFound, call(file, &Item::get_Attributes, &attributes));
  ComPtr<abi::IRandomAccessStream> stream;
  EXPECT_EQ(kNotFound, outcome(file, &File::OpenAsync, 0, stream.put()));
});

const Cell creating("storage.item.create.collisions", [] {
  const TemporaryFolder made;
  made.add("f.txt", "old");
  fs::create_directory(made.path() / "sub");
  const auto folder = at<Folder>(made.path());
  const struct {
    const char *name;
    int option;
    HRESULT status;
    const char *made = nullptr, *content = nullptr;
  } cases[] = {{"f.txt", 2, kTaken},
               {"f.txt", 3, 0, "f.txt", "old"}, // opened as it is
               {"f.txt", 0, 0, "f (2).txt", ""},
               {"f.txt", 1, 0, "f.txt", ""}, // replaced
               {"sub", 1, kTaken},           // a folder is not replaced by a file
               {"", 1, kInvalid},
               {"../out", 1, kInvalid},
               {"/tmp/out", 1, kInvalid},
               {"sub/..", 1, kInvalid},
               {"none/f", 1, kNotFound}};
  for (const auto &each : cases) {
    ComPtr<File> file;
    EXPECT_EQ(each.status,
              outcome(folder, &Folder::CreateFileAsync, each.name, each.option, file.put()))
        << each.name;
    if (each.made) {
      EXPECT_EQ(each.made, nameOf(file));
      EXPECT_EQ(each.content, contentOf(made.path() / each.made));
    }
  }
});

const Cell changing("storage.item.change.statuses", [] {
  const TemporaryFolder made;
  const auto file = at<File>(made.add("one.txt", "1"));
  made.add("two.txt", "2");
  fs::create_directory(made.path() / "sub");
  ComPtr<File> copy;
  const auto sub = at<Folder>(made.path() / "sub");
  const auto rename = [&](const char *name) {
    return outcome(file, &Item::RenameAsyncOverloadDefaultOptions, name);
  };
  EXPECT_EQ(kTaken, rename("two.txt"));
  EXPECT_EQ(kInvalid, rename("sub/one.txt"));
  EXPECT_EQ(0, rename("three.txt"));
  EXPECT_EQ("three.txt", nameOf(file)) << "the object moves along";
  EXPECT_EQ(0, outcome(file, &File::CopyOverloadDefaultNameAndOptions, sub, copy.put()));
  EXPECT_EQ("1", contentOf(made.path() / "sub/three.txt"));
  EXPECT_EQ(kTaken, outcome(file, &File::MoveOverloadDefaultNameAndOptions, sub));
  EXPECT_EQ(0, outcome(file, &File::MoveAndReplaceAsync, copy));
  EXPECT_FALSE(fs::exists(made.path() / "three.txt"));
  EXPECT_EQ(0, outcome(sub, &Item::DeleteAsync, 0));
  EXPECT_FALSE(fs::exists(made.path() / "sub"));
  EXPECT_EQ(kNotFound, outcome(file, &Item::DeleteAsync, 0));
});

const Cell querying("storage.folder.query.normal", [] {
  const TemporaryFolder made;
  const auto now = fs::file_time_type::clock::now();
  fs::last_write_time(made.add("b.TXT", "b"), now - std::chrono::hours(2));
  fs::last_write_time(made.add("a.xml", "a"), now - std::chrono::hours(1));
  made.add("sub/c.txt", "c");
  const auto folder = at<Folder>(made.path());
  EXPECT_EQ("a.xml|b.TXT", query(folder, 0));
  EXPECT_EQ("a.xml|b.TXT|c.txt", query(folder, 1));
  EXPECT_EQ("c.txt|a.xml|b.TXT", query(folder, 5));
  EXPECT_EQ("failed " + std::to_string(kInvalid), query(folder, 3));
  EXPECT_EQ("b.TXT", names(folder, &Query::GetFilesAsync, 1, 1u, 1u));
  EXPECT_EQ("", names(folder, &Query::GetFilesAsync, 1, 9u, 1u));

  using Options = abi::IQueryOptions;
  using Types = abi::IVector__1_WRTHSTRING;
  const auto options = activate<Options>(u"Windows.Storage.Search.QueryOptions");
  options->put_FolderDepth(1);
  call(answer(options, &Options::get_FileTypeFilter), &Types::Append, ".txt");
  const auto result = answer(folder, &Query::CreateFileQueryWithOptions, options);
  EXPECT_EQ("b.TXT|c.txt",
            names(result, &abi::IStorageFileQueryResult::GetFilesAsyncDefaultStartAndCount));
  made.add("late.txt", "");
  unsigned count = 0;
  EXPECT_EQ(0, outcome(result, &abi::IStorageQueryResultBase::GetItemCountAsync, &count));
  EXPECT_EQ(3u, count) << "a query asks the folder anew";
  call(options, &Options::put_UserSearchFilter, "words");
  ComPtr<abi::IStorageFileQueryResult> none;
  EXPECT_EQ(kInvalid, call(folder, &Query::CreateFileQueryWithOptions, options, none.put()));
});

const Cell properties("storage.file.properties.normal", [] {
  const TemporaryFolder made;
  const auto file = at<File>(made.add("page.HTML", "1"));
  // Whoever writes between the look-up and the question is seen.
  const fs::path path = made.add("page.HTML", "12345");
  const timespec when[] = {{981158400, 0}, {981158400, 0}}; // 2001-02-03
  utimensat(AT_FDCWD, path.c_str(), when, 0);
  using Facts = abi::IBasicProperties;
  ComPtr<Facts> facts;
  ASSERT_EQ(0, outcome(file, &Item::GetBasicPropertiesAsync, facts.put()));
  EXPECT_EQ(5u, answer(facts, &Facts::get_Size));
  EXPECT_EQ(126256320000000000, answer(facts, &Facts::get_DateModified).UniversalTime);
  EXPECT_EQ(".HTML", answer(file, &File::get_FileType));
  EXPECT_EQ("text/html", answer(file, &File::get_ContentType));
});

const Cell texts("storage.file.text.encodings", [] {
  const TemporaryFolder made;
  const std::string wide("\xFE\xFF\0\xFC\0!", 6);
  const std::string noText = std::to_string(static_cast<HRESULT>(0x80070459));
  const std::pair<std::string, std::string> cases[] = {
      {"", ""},
      {"plain", "plain"},
      {"\xEF\xBB\xBFmark", "mark"},
      {std::string("\xFF\xFE\xFC\0!\0", 6), "\xC3\xBC!"},
      {wide, "\xC3\xBC!"},
      {"\xFF\xFE!", noText}, // half a character
      {"\xC3(", noText},
      {"\xC0\x80", noText}}; // overlong
  for (const auto &[bytes, expected] : cases) {
    std::string result;
    const HRESULT status = readStatus(at<File>(made.add("f", bytes)), &result);
    EXPECT_EQ(expected, status < 0 ? std::to_string(status) : result) << bytes;
  }

  using IO = abi::IFileIOStatics;
  const auto io = statics<IO>(u"Windows.Storage.FileIO");
  const auto file = at<File>(made.add("g", "before"));
  const char *const words = "\xC3\xBC!";
  EXPECT_EQ(0, outcome(io, &IO::WriteTextAsync, file, words));
  EXPECT_EQ(0, outcome(io, &IO::AppendTextAsync, file, words));
  EXPECT_EQ("\xC3\xBC!\xC3\xBC!", contentOf(made.path() / "g"));
  EXPECT_EQ(0, outcome(io, &IO::WriteTextWithEncodingAsync, file, words, 2));
  EXPECT_EQ(wide, contentOf(made.path() / "g"));
  EXPECT_EQ(kInvalid, outcome(io, &IO::WriteTextWithEncodingAsync, file, words, 3));
  EXPECT_EQ(kInvalid, outcome(io, &IO::WriteTextAsync, nullptr, nullptr));
});

const Cell streams("storage.file.stream.statuses", [] {
  using Stream = abi::IRandomAccessStream;
  const TemporaryFolder made;
  const fs::path path = made.add("f", "0123456789");
  const auto file = at<File>(path);
  ComPtr<Stream> stream;
  const auto open = [&](int mode) { return outcome(file, &File::OpenAsync, mode, stream.put()); };
  ASSERT_EQ(0, open(0));
  const auto buffer = makeBuffer(4);
  ComPtr<abi::IBuffer> filled;
  const auto read = [&](unsigned count) {
    return outcome(stream, &abi::IInputStream::ReadAsync, buffer, count, 0, filled.put());
  };
  unsigned written = 0;
  const auto write = [&] {
    return outcome(stream, &abi::IOutputStream::WriteAsync, buffer, &written);
  };
  EXPECT_EQ(kInvalid, read(5)) << "more than there is room for";
  stream->Seek(8);
  EXPECT_EQ(0, read(4));
  EXPECT_EQ(2u, answer(buffer, &abi::IBuffer::get_Length));
  EXPECT_EQ(0, read(4)) << "at the end there is nothing, which is no failure";
  EXPECT_EQ(0u, answer(buffer, &abi::IBuffer::get_Length));
  EXPECT_EQ(kDenied, write()) << "opened for reading";
  EXPECT_EQ(kDenied, stream->put_Size(3));
  const auto clone = answer(stream, &Stream::CloneStream);
  EXPECT_EQ(0, call(stream, &abi::IClosable::Close));
  EXPECT_EQ(0, call(stream, &abi::IClosable::Close));
  unsigned long long size = 0;
  EXPECT_EQ(kIsClosed, stream->get_Size(&size));
  EXPECT_EQ(kIsClosed, stream->Seek(0));
  EXPECT_EQ(kIsClosed, read(1));
  EXPECT_EQ(kIsClosed, write());
  EXPECT_EQ(10u, answer(clone, &Stream::get_Size)) << "a clone closes for itself";

  ASSERT_EQ(0, open(1));
  stream->Seek(12);
  buffer->put_Length(1);
  EXPECT_EQ(0, write());
  EXPECT_EQ(std::string("0123456789\0\0", 12), contentOf(path).substr(0, 12)) << "the gap is zeros";
  EXPECT_EQ(0, stream->put_Size(3));
  EXPECT_EQ("012", contentOf(path));
  EXPECT_EQ(kInvalid, open(7));
  EXPECT_EQ(kInvalid, buffer->put_Length(5));
});

} // namespace
} // namespace wrt::test
