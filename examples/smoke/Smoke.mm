// wrtsmoke.exe: whether WRTObjcBridge_zorvex.dll loads here, starts up and calls.
//
// Prints a line for each step and for each of 20 calls, whose answers are the same on every
// Windows. Exit status: the number of calls that were answered otherwise, 100 when the DLL cannot
// be loaded, 101 when it lacks a class.
#import <Foundation/Foundation.h>
#import <WRTObjcBridge/Windows.Data.Xml.Dom.h>
#import <WRTObjcBridge/Windows.Foundation.h>

extern "C" {
__declspec(dllimport) void *LoadLibraryExW(const char16_t *name, void *file, uint32_t flags);
__declspec(dllimport) void *GetProcAddress(void *module, const char *name);
__declspec(dllimport) uint32_t GetLastError();
__declspec(dllimport) void *GetStdHandle(uint32_t which);
__declspec(dllimport) int WriteFile(void *file, const void *bytes, uint32_t size, uint32_t *written,
                                    void *overlapped);
[[noreturn]] __declspec(dllimport) void ExitProcess(uint32_t status);
__declspec(dllimport) HRESULT RoInitialize(int type);
int WRTDllEntry(void *module, unsigned long reason, void *reserved);
}

namespace {

void *library;
uint32_t wrong;

void print(const char *text) {
  uint32_t size = 0;
  while (text[size])
    ++size;
  WriteFile(GetStdHandle(static_cast<uint32_t>(-11)), text, size, &size, nullptr);
}

// A base that is no constant would call a division, which the processor lacks.
template <uint32_t base>
void print(uint32_t number) {
  char digits[11];
  char *at = digits + sizeof digits;
  *--at = 0;
  do
    *--at = "0123456789ABCDEF"[number % base];
  while (number /= base);
  print(at);
}

void printText(NSString *text) {
  print("\"");
  print([text UTF8String] ?: "");
  print("\"");
}

void printNumber(int number) {
  print(number < 0 ? "-" : "");
  print<10>(number < 0 ? -static_cast<uint32_t>(number) : static_cast<uint32_t>(number));
}

/// The class as the DLL exports it: linked against, a missing DLL would keep the program from
/// starting.
id named(const char *symbol) {
  id *found = static_cast<id *>(GetProcAddress(library, symbol));
  if (!found) {
    print("start-up: there is no ");
    print(symbol);
    print("\n");
    ExitProcess(101);
  }
  return reinterpret_cast<id>(found);
}
#define CLASS(name) named("OBJC_CLASS_$_" #name)

// The arguments are printed as they stand, which the formatter does not know.
// clang-format off

/// Evaluates `sent`, a message that may fill in `error`, and prints a line: class, selector, result
/// or status, and whether that is what is expected. A crash leaves the line without its end.
#define CALL(name, message, sent, printResult, isExpected)                                         \
  do {                                                                                             \
    NSError *error = nil;                                                                          \
    print(#name " " #message " ");                                                                 \
    auto result = sent;                                                                            \
    if (error) {                                                                                   \
      print("fails with 0x");                                                                      \
      print<16>(static_cast<uint32_t>([error code]));                                              \
    } else {                                                                                       \
      printResult;                                                                                 \
    }                                                                                              \
    const bool isRight = (isExpected) && !error;                                                   \
    wrong += !isRight;                                                                             \
    print(isRight ? ": ok\n" : ": WRONG\n");                                                       \
  } while (0)
#define TEXT(name, receiver, message, expected)                                                    \
  CALL(name, message, [receiver message &error], printText(result),                                \
       [result isEqualToString:expected])
#define NUMBER(name, receiver, message, expected)                                                  \
  CALL(name, message, [receiver message &error], printNumber(static_cast<int>(result)),            \
       result == (expected))
#define OBJECT(name, receiver, message, variable)                                                  \
  CALL(name, message, [receiver message &error], print(result ? "an object" : "nil"),              \
       (variable = result) != nil)
#define DONE(name, receiver, message)                                                              \
  CALL(name, message, ([receiver message &error], !error), print("done"), result)

void callUri() {
  WRTUriBridge *uri = nil;
  id type = CLASS(WRTUriBridge);
  OBJECT(WRTUriBridge, type, createUriWithUri:@"http://www.example.com:8080/a/b.txt?c=d#e" error:,
         uri);
  TEXT(WRTUriBridge, uri, getRawUriWithError:, @"http://www.example.com:8080/a/b.txt?c=d#e");
  TEXT(WRTUriBridge, uri, getSchemeNameWithError:, @"http");
  TEXT(WRTUriBridge, uri, getHostWithError:, @"www.example.com");
  NUMBER(WRTUriBridge, uri, getPortWithError:, 8080);
  TEXT(WRTUriBridge, uri, getPathWithError:, @"/a/b.txt");
  TEXT(WRTUriBridge, uri, getExtensionWithError:, @".txt");
  TEXT(WRTUriBridge, uri, getQueryWithError:, @"?c=d");
  TEXT(WRTUriBridge, uri, getFragmentWithError:, @"#e");
  NUMBER(WRTUriBridge, uri, getSuspiciousWithError:, 0);
  TEXT(WRTUriBridge, type, escapeComponentWithToEscape:@"a b" error:, @"a%20b");
}

void callValues() {
  id type = CLASS(WRTPropertyValueBridge);
  id interface = CLASS(WRTIPropertyValueBridge);
  id boxed = nil;
  OBJECT(WRTPropertyValueBridge, type, createInt32WithValue:-42 error:, boxed);
  NUMBER(WRTIPropertyValueBridge, [interface cast:boxed], getInt32WithError:, -42);
  OBJECT(WRTPropertyValueBridge, type, createDoubleWithValue:2147483647.0 error:, boxed);
  NUMBER(WRTIPropertyValueBridge, [interface cast:boxed], getDoubleWithError:, 2147483647.0);
  OBJECT(WRTPropertyValueBridge, type, createStringWithValue:@"text" error:, boxed);
  TEXT(WRTIPropertyValueBridge, [interface cast:boxed], getStringWithError:, @"text");
}

void callDocument() {
  WRTXmlDocumentBridge *document = [[CLASS(WRTXmlDocumentBridge) alloc] init];
  DONE(WRTXmlDocumentBridge, document, loadXmlWithXml:@"<a>b</a>" error:);
  TEXT(WRTXmlDocumentBridge, document, getXmlWithError:, @"<a>b</a>");
  TEXT(WRTXmlDocumentBridge, document, getInnerTextWithError:, @"b");
  [document release];
}
// clang-format on

} // namespace

/// Where the program begins: its own start-up, as that of a library, and the steps.
extern "C" [[noreturn]] void WRTProgramEntry() {
  WRTDllEntry(nullptr, 1, nullptr);
  RoInitialize(1); // multithreaded
  print("load: WRTObjcBridge_zorvex.dll ");
  library = LoadLibraryExW(u"WRTObjcBridge_zorvex.dll", nullptr, 0);
  if (!library) {
    print("cannot be loaded, error ");
    print<10>(GetLastError());
    print("\n");
    ExitProcess(100);
  }
  print("is there\nstart-up: WRTUriBridge ");
  // A message looks into the class's records, which start-up has completed.
  print([CLASS(WRTUriBridge) superclass] ? "answers\n" : "has no superclass\n");
  @autoreleasepool {
    callUri();
    callValues();
    callDocument();
  }
  print<10>(wrong);
  print(" of 20 calls wrong\n");
  ExitProcess(wrong);
}
