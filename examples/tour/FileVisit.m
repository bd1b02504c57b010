#import "FileVisit.h"

#import "Findings.h"
#import "Waiting.h"

#import <WRTObjcBridge/IAsyncOperation.h>
#import <WRTObjcBridge/IVectorView.h>
#import <WRTObjcBridge/WRTConversions.h>
#import <WRTObjcBridge/Windows.Data.Xml.Dom.h>
#import <WRTObjcBridge/Windows.Storage.FileProperties.h>
#import <WRTObjcBridge/Windows.Storage.Streams.h>
#import <WRTObjcBridge/Windows.Storage.h>

#include <time.h>

/// Larger files are listed and not read.
static const unsigned long long kReadLimit = 64 << 20;

static NSString *describeDate(WRTDateTime date) {
  const long long kUnixEpoch = 116444736000000000; // in units of 100 ns since 1601
  time_t seconds = (date.UniversalTime - kUnixEpoch) / 10000000;
  struct tm parts;
  char text[32];
  localtime_r(&seconds, &parts);
  strftime(text, sizeof text, "%Y-%m-%d %H:%M", &parts);
  return [NSString stringWithUTF8String:text];
}

static NSString *readText(WRTStorageFileBridge *file, NSError **error) {
  id<WRTIAsyncOperation__1_WRTHSTRING_Bridge> reading =
      waitFor([WRTFileIOBridge readTextAsyncWithFile:(id)file error:error], error);
  return [reading getResultsWithError:error];
}

/// Parses the text and selects from it; what it found, or nil and an error.
static NSString *visitXml(NSString *text, Findings *findings, NSError **error) {
  NSError *problem = nil;
  WRTXmlDocumentBridge *document = [[[WRTXmlDocumentBridge alloc] init] autorelease];
  [document loadXmlWithXml:text error:&problem];
  if (problem) {
    *error = problem;
    return nil;
  }
  WRTXmlNodeListBridge *elements = [document selectNodesWithXpath:@"//*" error:error];
  WRTXmlNodeListBridge *attributes = [document selectNodesWithXpath:@"//@*" error:error];
  id<WRTIXmlNodeBridge> first = [document selectSingleNodeWithXpath:@"/*/*[1]" error:error];
  const unsigned count = [elements getLengthWithError:error];
  [findings add:1 to:@"XML documents"];
  [findings add:count to:@"XML elements"];
  NSMutableString *result = [NSMutableString
      stringWithFormat:@"XML <%@>, %u elements, %u attributes",
                       [[document getDocumentElementWithError:error] getTagNameWithError:error],
                       count, [attributes getLengthWithError:error]];
  if (first)
    [result appendFormat:@", first <%@>", [first getNodeNameWithError:error]];
  return result;
}

static NSString *visitText(WRTStorageFileBridge *file, BOOL isXml, Findings *findings,
                           NSError **error) {
  NSString *text = readText(file, error);
  if (!text)
    return nil;
  if (isXml)
    return visitXml(text, findings, error);
  NSCharacterSet *spaces = [NSCharacterSet whitespaceAndNewlineCharacterSet];
  unsigned words = 0;
  for (NSString *word in [text componentsSeparatedByCharactersInSet:spaces])
    words += [word length] > 0;
  const unsigned lines = [[text componentsSeparatedByString:@"\n"] count] - 1;
  [findings add:1 to:@"texts"];
  [findings add:words to:@"words"];
  return [NSString stringWithFormat:@"text, %u lines, %u words", lines, words];
}

/// Reads the file as data, makes a stream of it and reads that again.
static NSString *visitData(WRTStorageFileBridge *file, Findings *findings, NSError **error) {
  WRTRandomAccessStreamReferenceBridge *reference =
      [WRTRandomAccessStreamReferenceBridge createFromFileWithFile:(id)file error:error];
  // The conversion tells no error; opening the file does.
  id opening = waitFor([reference openReadAsyncWithError:error], error);
  if (![(id<WRTIAsyncOperation__1_WRTIRandomAccessStreamWithContentType_P_Bridge>)opening
          getResultsWithError:error])
    return nil;
  NSData *data = WRTCreateNSDataFromRandomAccessStreamReference(reference);
  id copy = data ? WRTCreateWRTRandomAccessReferenceBridgeFromNSData(data) : nil;
  NSData *again = copy ? WRTCreateNSDataFromRandomAccessStreamReference(copy) : nil;
  if (!again || ![again isEqual:data])
    return nil;
  [findings add:1 to:@"data files"];
  [findings add:[data length] to:@"data bytes"];
  const unsigned char *bytes = [data bytes];
  if ([data length] >= 24 && memcmp(bytes, "\x89PNG\r\n\x1A\n", 8) == 0) {
    const unsigned width = (unsigned)bytes[18] << 8 | bytes[19];
    const unsigned height = (unsigned)bytes[22] << 8 | bytes[23];
    return [NSString stringWithFormat:@"PNG picture, %u x %u", width, height];
  }
  return @"data, the same after a stream";
}

void visitFile(WRTStorageFileBridge *file, Findings *findings) {
  NSError *error = nil;
  NSString *name = [file getNameWithError:&error];
  id<WRTIAsyncOperation__1_WRTBasicProperties_P_Bridge> asking =
      waitFor([file getBasicPropertiesAsyncWithError:&error], &error);
  WRTBasicPropertiesBridge *properties = [asking getResultsWithError:&error];
  if (!properties) {
    [findings report:@"look at" on:name error:error];
    return;
  }
  const unsigned long long size = [properties getSizeWithError:NULL];
  [findings add:1 to:@"files"];
  [findings add:size to:@"bytes"];

  NSString *type = [file getContentTypeWithError:NULL];
  const BOOL isXml = [type hasSuffix:@"xml"];
  NSString *learnt = nil;
  if (size > kReadLimit)
    learnt = @"too large to be read here";
  else if (isXml || [type hasPrefix:@"text/"])
    learnt = visitText(file, isXml, findings, &error);
  else
    learnt = visitData(file, findings, &error);
  if (!learnt) {
    [findings report:@"read" on:name error:error];
    learnt = [NSString stringWithFormat:@"- %@", describeError(error)];
  }
  NSString *date = describeDate([properties getDateModifiedWithError:NULL]);
  [findings addRow:[NSArray arrayWithObjects:name, describeSize(size), date, learnt, nil]];
}
