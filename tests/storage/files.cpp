// Files, folders, queries and streams over the real file system, and the statuses with which they
// fail.

#include "platform/linux/components/storage/StorageTypes.h"
#include "tests/storage/StorageFixture.h"
#include "tests/support/LogRecorder.h"

#include <abi/IVector.abi.h>

#include <algorithm>
#include <chrono>
#include <fcntl.h>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace wrt::test {

using namespace components;

namespace {

constexpr HRESULT kNotFound = static_cast<HRESULT>(0x80070002);
constexpr HRESULT kDenied = static_cast<HRESULT>(0x80070005);
constexpr HRESULT kInvalid = static_cast<HRESULT>(0x80070057);
constexpr HRESULT kTaken = static_cast<HRESULT>(0x800700B7);
constexpr HRESULT kIsClosed = static_cast<HRESULT>(0x80000013);

using File = abi::IStorageFile;
using Folder = abi::IStorageFolder;
using Item = abi::IStorageItem;

HRESULT findFile(const std::string &path, ComPtr<File> &file) {
  return outcome(statics<abi::IStorageFileStatics>(u"Windows.Storage.StorageFile"),
                 &abi::IStorageFileStatics::GetFileFromPathAsync, text(path).get(), file.put());
}
HRESULT findFolder(const std::string &path, ComPtr<Folder> &folder) {
  return outcome(statics<abi::IStorageFolderStatics>(u"Windows.Storage.StorageFolder"),
                 &abi::IStorageFolderStatics::GetFolderFromPathAsync, text(path).get(),
                 folder.put());
}
HRESULT fileStatus(const fs::path &path) {
  ComPtr<File> file;
  return findFile(path, file);
}
HRESULT folderStatus(const fs::path &path) {
  ComPtr<Folder> folder;
  return findFolder(path, folder);
}

std::string nameOf(abi::IUnknown *object) {
  StringHolder name;
  ComPtr(object).as<Item>()->get_Name(name.put());
  return utf8(name);
}

/// The names of the files that a member lists, joined by bars; or the status.
template <class Object, class Member, class... Arguments>
std::string names(const ComPtr<Object> &object, Member member, Arguments... arguments) {
  ComPtr<abi::IVectorView__1_WRTStorageFile_P> files;
  if (const HRESULT status = outcome(object, member, arguments..., files.put()); status < 0)
    return "failed " + std::to_string(status);
  std::string result;
  unsigned count = 0;
  files->get_Size(&count);
  for (unsigned i = 0; i < count; ++i) {
    ComPtr<File> file;
    files->GetAt(i, file.put());
    result += (i ? "|" : "") + nameOf(file.get());
  }
  return result;
}
std::string namesIn(const ComPtr<Folder> &folder) {
  return names(folder, &Folder::GetFilesAsyncOverloadDefaultOptionsStartAndCount);
}
std::string query(const ComPtr<Folder> &folder, int number) {
  return names(folder,
               &abi::IStorageFolderQueryOperations::GetFilesAsyncOverloadDefaultStartAndCount,
               number);
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
  settleAfterwards();
  const TemporaryFolder folder;
  folder.add("a.txt", "a");
  fs::create_directory(folder.path() / "sub");
  fs::create_symlink("a.txt", folder.path() / "link.txt");
  fs::create_symlink("nowhere", folder.path() / "dangling");
  fs::create_symlink("circle", folder.path() / "circle");
  ASSERT_EQ(0, mkfifo((folder.path() / "pipe").c_str(), 0600));

  EXPECT_EQ(0, fileStatus(folder.path() / "a.txt"));
  EXPECT_EQ(0, fileStatus(folder.path() / "link.txt"));
  EXPECT_EQ(0, folderStatus(folder.path() / "sub/"));
  EXPECT_EQ(0, folderStatus("/"));
  EXPECT_EQ(kNotFound, fileStatus(folder.path() / "b.txt"));
  EXPECT_EQ(kNotFound, fileStatus(folder.path() / "dangling"));
  EXPECT_EQ(kNotFound, folderStatus(folder.path() / "none"));
  EXPECT_EQ(static_cast<HRESULT>(0x80070003), fileStatus(folder.path() / "a.txt/b"));
  EXPECT_EQ(static_cast<HRESULT>(0x80070781), fileStatus(folder.path() / "circle"));
  // ".." is the kernel's: above the folder that a link leads to.
  fs::create_directories(folder.path() / "far/inner");
  fs::create_symlink("far/inner", folder.path() / "away");
  folder.add("far/b.txt", "b");
  EXPECT_EQ(0, fileStatus(folder.path() / "away/.././b.txt"));
  EXPECT_EQ(kNotFound, fileStatus(folder.path() / "away/../a.txt"));
  EXPECT_EQ(kNotFound, folderStatus(folder.path() / "none/.."));
  ComPtr<Folder> above;
  EXPECT_EQ(0, findFolder(folder.path() / "sub/../away/..//.", above));
  EXPECT_EQ("far", nameOf(above.get()));
  EXPECT_EQ(kInvalid, fileStatus(folder.path() / "sub")) << "a folder is no file";
  EXPECT_EQ(kInvalid, folderStatus(folder.path() / "a.txt")) << "nor the other way round";
  EXPECT_EQ(kInvalid, fileStatus("a.txt")) << "relative";
  EXPECT_EQ(kInvalid, fileStatus(""));
  EXPECT_EQ(kDenied, fileStatus(folder.path() / "pipe")) << "nothing may wait for a pipe";
});

const Cell strangeNames("storage.item.names.strange", [] {
  settleAfterwards();
  const TemporaryFolder made;
  const std::string all[] = {"a b.txt", "broken \xFF\xC3.txt", "tab\there",
                             "\xE6\x97\xA5\xF0\x9F\x98\x80.txt"};
  for (const std::string &name : all)
    made.add(name, name);
  ComPtr<Folder> folder;
  ASSERT_EQ(0, findFolder(made.path(), folder));
  EXPECT_EQ(all[0] + "|" + all[1] + "|" + all[2] + "|" + all[3], namesIn(folder));
  for (const std::string &name : {all[0], all[1], all[3]}) {
    ComPtr<File> file;
    ASSERT_EQ(0, findFile(made.path() / name, file)) << name;
    EXPECT_EQ(name, nameOf(file.get()));
  }
});

const Cell permissions("storage.item.permissions.denied", [] {
  settleAfterwards();
  const TemporaryFolder made;
  const fs::path secret = made.add("secret.txt", "s");
  made.add("closed/inner.txt", "i");
  fs::permissions(secret, fs::perms::none);
  fs::permissions(made.path() / "closed", fs::perms::none);
  made.add("listed/inner.txt", "z");
  fs::permissions(made.path() / "listed", fs::perms(0744));
  clearLog();
  {
    const NoPrivileges noPrivileges;
    ComPtr<File> file;
    ComPtr<Folder> folder, closed, listed;
    ASSERT_EQ(0, findFile(secret, file)) << "it is there";
    EXPECT_EQ(kDenied, readStatus(file));
    EXPECT_EQ(kDenied, fileStatus(made.path() / "closed/inner.txt"));
    ASSERT_EQ(0, findFolder(made.path() / "closed", closed));
    EXPECT_EQ("failed " + std::to_string(kDenied), namesIn(closed));
    ASSERT_EQ(0, findFolder(made.path() / "listed", listed));
    EXPECT_EQ("failed " + std::to_string(kDenied), namesIn(listed)) << "names that lead nowhere";
    ASSERT_EQ(0, findFolder(made.path(), folder));
    EXPECT_EQ("secret.txt", query(folder, 1))
        << "a folder below that is closed does not keep the others from being listed";
    const auto log = logRecords();
    for (const char *name : {"closed", "listed"})
      EXPECT_EQ(1, std::ranges::count(log,
                                      "Left out " + (made.path() / name).string() + ": 0x80070005",
                                      &LogRecord::text));
    EXPECT_EQ(kDenied, outcome(folder, &Folder::CreateFileAsyncOverloadDefaultOptions,
                               text("new").get(), file.put()));
  }
  fs::permissions(made.path() / "closed", fs::perms(0700));
});

const Cell vanishing("storage.item.lifetime.vanishing", [] {
  settleAfterwards();
  const TemporaryFolder made;
  const fs::path path = made.add("short-lived.txt", "x");
  ComPtr<File> file;
  ASSERT_EQ(0, findFile(path, file));
  fs::remove(path);
  EXPECT_EQ(kNotFound, readStatus(file));
  ComPtr<abi::IBasicProperties> properties;
  EXPECT_EQ(kNotFound, outcome(file, &Item::GetBasicPropertiesAsync, properties.put()));
  int attributes = -1;
  EXPECT_EQ(kNotFound, file.as<Item>()->get_Attributes(&attributes));
  ComPtr<abi::IRandomAccessStream> stream;
  EXPECT_EQ(kNotFound, outcome(file, &File::OpenAsync, 0, stream.put()));
});

HRESULT createFile(const ComPtr<Folder> &folder, const char *name, int option, std::string *made) {
  ComPtr<File> file;
  const HRESULT status =
      outcome(folder, &Folder::CreateFileAsync, text(name).get(), option, file.put());
  *made = file ? nameOf(file.get()) : "";
  return status;
}

const Cell creating("storage.item.create.collisions", [] {
  settleAfterwards();
  const TemporaryFolder made;
  made.add("f.txt", "old");
  fs::create_directory(made.path() / "sub");
  ComPtr<Folder> folder;
  ASSERT_EQ(0, findFolder(made.path(), folder));
  std::string name;
  EXPECT_EQ(kTaken, createFile(folder, "f.txt", 2, &name));
  EXPECT_EQ(0, createFile(folder, "f.txt", 3, &name));
  EXPECT_EQ("old", contentOf(made.path() / "f.txt")) << "opened as it is";
  EXPECT_EQ(0, createFile(folder, "f.txt", 0, &name));
  EXPECT_EQ("f (2).txt", name);
  EXPECT_EQ(0, createFile(folder, "f.txt", 1, &name));
  EXPECT_EQ("", contentOf(made.path() / "f.txt")) << "replaced";
  EXPECT_EQ(kTaken, createFile(folder, "sub", 1, &name)) << "a folder is not replaced by a file";
  for (const char *bad : {"", "../out", "/tmp/out", "sub/.."})
    EXPECT_EQ(kInvalid, createFile(folder, bad, 1, &name)) << bad;
  EXPECT_EQ(kNotFound, createFile(folder, "none/f", 1, &name));
});

const Cell changing("storage.item.change.statuses", [] {
  settleAfterwards();
  const TemporaryFolder made;
  const fs::path path = made.add("one.txt", "1");
  made.add("two.txt", "2");
  fs::create_directory(made.path() / "sub");
  ComPtr<File> file, copy;
  ComPtr<Folder> sub;
  ASSERT_EQ(0, findFile(path, file));
  ASSERT_EQ(0, findFolder(made.path() / "sub", sub));
  const auto rename = [&](const char *name) {
    return outcome(file, &Item::RenameAsyncOverloadDefaultOptions, text(name).get());
  };
  EXPECT_EQ(kTaken, rename("two.txt"));
  EXPECT_EQ(kInvalid, rename("sub/one.txt"));
  EXPECT_EQ(0, rename("three.txt"));
  EXPECT_EQ("three.txt", nameOf(file.get())) << "the object moves along";
  EXPECT_EQ(0, outcome(file, &File::CopyOverloadDefaultNameAndOptions, sub.get(), copy.put()));
  EXPECT_EQ("1", contentOf(made.path() / "sub/three.txt"));
  EXPECT_EQ(kTaken, outcome(file, &File::MoveOverloadDefaultNameAndOptions, sub.get()));
  EXPECT_EQ(0, outcome(file, &File::MoveAndReplaceAsync, copy.get()));
  EXPECT_FALSE(fs::exists(made.path() / "three.txt"));
  EXPECT_EQ(0, outcome(sub, &Item::DeleteAsync, 0));
  EXPECT_FALSE(fs::exists(made.path() / "sub"));
  EXPECT_EQ(kNotFound, outcome(file, &Item::DeleteAsync, 0));
});

const Cell querying("storage.folder.query.normal", [] {
  settleAfterwards();
  const TemporaryFolder made;
  fs::last_write_time(made.add("b.TXT", "b"),
                      fs::file_time_type::clock::now() - std::chrono::hours(2));
  fs::last_write_time(made.add("a.xml", "a"),
                      fs::file_time_type::clock::now() - std::chrono::hours(1));
  made.add("sub/c.txt", "c");
  ComPtr<Folder> folder;
  ASSERT_EQ(0, findFolder(made.path(), folder));
  const auto operations = folder.as<abi::IStorageFolderQueryOperations>();
  EXPECT_EQ("a.xml|b.TXT", query(folder, 0));
  EXPECT_EQ("a.xml|b.TXT|c.txt", query(folder, 1));
  EXPECT_EQ("c.txt|a.xml|b.TXT", query(folder, 5));
  EXPECT_EQ("failed " + std::to_string(kInvalid), query(folder, 3));
  const auto files = &abi::IStorageFolderQueryOperations::GetFilesAsync;
  EXPECT_EQ("b.TXT", names(folder, files, 1, 1u, 1u));
  EXPECT_EQ("", names(folder, files, 1, 9u, 1u));

  const auto options = activate<abi::IQueryOptions>(u"Windows.Storage.Search.QueryOptions");
  options->put_FolderDepth(1);
  ComPtr<abi::IVector__1_WRTHSTRING> types;
  options->get_FileTypeFilter(types.put());
  types->Append(text(".txt").get());
  ComPtr<abi::IStorageFileQueryResult> result;
  ASSERT_EQ(0, operations->CreateFileQueryWithOptions(options.get(), result.put()));
  EXPECT_EQ("b.TXT|c.txt",
            names(result, &abi::IStorageFileQueryResult::GetFilesAsyncDefaultStartAndCount));
  made.add("late.txt", "");
  unsigned count = 0;
  EXPECT_EQ(0, outcome(result, &abi::IStorageQueryResultBase::GetItemCountAsync, &count));
  EXPECT_EQ(3u, count) << "a query asks the folder anew";
  options->put_UserSearchFilter(text("words").get());
  EXPECT_EQ(kInvalid, operations->CreateFileQueryWithOptions(options.get(), result.put()));
});

const Cell properties("storage.file.properties.normal", [] {
  settleAfterwards();
  const TemporaryFolder made;
  made.add("page.HTML", "1");
  ComPtr<File> file;
  ASSERT_EQ(0, findFile(made.path() / "page.HTML", file));
  // Whoever writes between the look-up and the question is seen.
  const fs::path path = made.add("page.HTML", "12345");
  const timespec when[] = {{981158400, 0}, {981158400, 0}}; // 2001-02-03
  utimensat(AT_FDCWD, path.c_str(), when, 0);
  ComPtr<abi::IBasicProperties> facts;
  ASSERT_EQ(0, outcome(file, &Item::GetBasicPropertiesAsync, facts.put()));
  unsigned long long size = 0;
  WRTDateTime date{};
  facts->get_Size(&size);
  facts->get_DateModified(&date);
  EXPECT_EQ(5u, size);
  EXPECT_EQ(126256320000000000, date.UniversalTime);
  StringHolder type, content;
  file->get_FileType(type.put());
  file->get_ContentType(content.put());
  EXPECT_EQ(".HTML text/html", utf8(type) + " " + utf8(content));
});

const Cell texts("storage.file.text.encodings", [] {
  settleAfterwards();
  const TemporaryFolder made;
  const auto io = statics<abi::IFileIOStatics>(u"Windows.Storage.FileIO");
  const auto read = [&](const std::string &content) {
    ComPtr<File> file;
    findFile(made.add("f", content), file);
    std::string result;
    const HRESULT status = readStatus(file, &result);
    return status < 0 ? std::to_string(status) : result;
  };
  EXPECT_EQ("", read(""));
  EXPECT_EQ("plain", read("plain"));
  EXPECT_EQ("mark", read("\xEF\xBB\xBFmark"));
  EXPECT_EQ("\xC3\xBC!", read(std::string("\xFF\xFE\xFC\0!\0", 6)));
  EXPECT_EQ("\xC3\xBC!", read(std::string("\xFE\xFF\0\xFC\0!", 6)));
  const std::string noText = std::to_string(static_cast<HRESULT>(0x80070459));
  EXPECT_EQ(noText, read("\xFF\xFE!")) << "half a character";
  EXPECT_EQ(noText, read("\xC3("));
  EXPECT_EQ(noText, read("\xC0\x80")) << "overlong";

  ComPtr<File> file;
  ASSERT_EQ(0, findFile(made.add("g", "before"), file));
  using IO = abi::IFileIOStatics;
  const StringHolder words = text("\xC3\xBC!");
  EXPECT_EQ(0, outcome(io, &IO::WriteTextAsync, file.get(), words.get()));
  EXPECT_EQ(0, outcome(io, &IO::AppendTextAsync, file.get(), words.get()));
  EXPECT_EQ("\xC3\xBC!\xC3\xBC!", contentOf(made.path() / "g"));
  EXPECT_EQ(0, outcome(io, &IO::WriteTextWithEncodingAsync, file.get(), words.get(), 2));
  EXPECT_EQ(std::string("\xFE\xFF\0\xFC\0!", 6), contentOf(made.path() / "g"));
  EXPECT_EQ(kInvalid, outcome(io, &IO::WriteTextWithEncodingAsync, file.get(), words.get(), 3));
  EXPECT_EQ(kInvalid, outcome(io, &IO::WriteTextAsync, nullptr, nullptr));
});

const Cell streams("storage.file.stream.statuses", [] {
  settleAfterwards();
  const TemporaryFolder made;
  const fs::path path = made.add("f", "0123456789");
  ComPtr<File> file;
  ComPtr<abi::IRandomAccessStream> stream, clone;
  ASSERT_EQ(0, findFile(path, file));
  const auto open = [&](int mode) { return outcome(file, &File::OpenAsync, mode, stream.put()); };
  ASSERT_EQ(0, open(0));
  const auto buffer = makeBuffer(4);
  ComPtr<abi::IBuffer> filled;
  const auto read = [&](unsigned count) {
    return outcome(stream, &abi::IInputStream::ReadAsync, buffer.get(), count, 0, filled.put());
  };
  unsigned written = 0;
  const auto write = [&] {
    return outcome(stream, &abi::IOutputStream::WriteAsync, buffer.get(), &written);
  };
  unsigned length = 9;
  EXPECT_EQ(kInvalid, read(5)) << "more than there is room for";
  stream->Seek(8);
  EXPECT_EQ(0, read(4));
  buffer->get_Length(&length);
  EXPECT_EQ(2u, length);
  EXPECT_EQ(0, read(4)) << "at the end there is nothing, which is no failure";
  buffer->get_Length(&length);
  EXPECT_EQ(0u, length);
  EXPECT_EQ(kDenied, write()) << "opened for reading";
  EXPECT_EQ(kDenied, stream->put_Size(3));
  EXPECT_EQ(0, stream->CloneStream(clone.put()));
  EXPECT_EQ(0, stream.as<abi::IClosable>()->Close());
  EXPECT_EQ(0, stream.as<abi::IClosable>()->Close());
  unsigned long long size = 0;
  EXPECT_EQ(kIsClosed, stream->get_Size(&size));
  EXPECT_EQ(kIsClosed, stream->Seek(0));
  EXPECT_EQ(kIsClosed, read(1));
  EXPECT_EQ(kIsClosed, write());
  EXPECT_EQ(0, clone->get_Size(&size)) << "a clone closes for itself";
  EXPECT_EQ(10u, size);

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
