#import "FileVisit.h"

#import "Findings.h"
#import "Names.h"

#import <WRTObjcBridge/WRTConversions.h>
#import <WRTObjcBridge/Windows.Data.Xml.Dom.h>
#import <WRTObjcBridge/Windows.Storage.FileProperties.h>
#import <WRTObjcBridge/Windows.Storage.Streams.h>
#import <WRTObjcBridge/Windows.Storage.h>
#import <WRTSupport/WRTSupport.h>

/// Larger files are listed and not read.
static const unsigned long long kReadLimit = 64 << 20;

/// Parses the text and selects from it; what it found, or nil and an error.
static NSString *visitXml(NSString *text, Findings *findings, NSError **error) {
  WRTXmlDocumentBridge *document = [[[WRTXmlDocumentBridge alloc] init] autorelease];
  [document loadXmlWithXml:text error:error];
  if (*error)
    return nil;
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
  NSString *text = WRTAwait([WRTFileIOBridge readTextAsyncWithFile:(id)file error:error], error);
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

static unsigned bigEndian(const unsigned char *bytes) {
  return (unsigned)bytes[0] << 24 | bytes[1] << 16 | bytes[2] << 8 | bytes[3];
}

/// Reads the file as data, makes a stream of it and reads that again.
static NSString *visitData(WRTStorageFileBridge *file, Findings *findings, NSError **error) {
  WRTRandomAccessStreamReferenceBridge *reference =
      [WRTRandomAccessStreamReferenceBridge createFromFileWithFile:(id)file error:error];
  // The conversion tells no error; opening the file does.
  if (!WRTAwait([reference openReadAsyncWithError:error], error))
    return nil;
  NSData *data = WRTCreateNSDataFromRandomAccessStreamReference(reference);
  id copy = data ? WRTCreateWRTRandomAccessReferenceBridgeFromNSData(data) : nil;
  NSData *again = copy ? WRTCreateNSDataFromRandomAccessStreamReference(copy) : nil;
  if (!again || ![again isEqual:data])
    return nil;
  [findings add:1 to:@"data files"];
  [findings add:[data length] to:@"data bytes"];
  const unsigned char *bytes = [data bytes];
  // The picture's first chunk, of 13 bytes, begins with its width and height.
  static const char start[] = "\x89PNG\r\n\x1A\n\0\0\0\rIHDR";
  if ([data length] >= 29 && memcmp(bytes, start, 16) == 0) {
    return [NSString
        stringWithFormat:@"PNG picture, %u x %u", bigEndian(bytes + 16), bigEndian(bytes + 20)];
  }
  return @"data, the same after a stream";
}

void visitFile(WRTStorageFileBridge *file, NSString *folder, Findings *findings) {
  NSError *error = nil;
  NSString *own = [file getNameWithError:&error];
  NSString *name = [NSString stringWithFormat:@"%@%@", folder, own ? own : @"(a file)"];
  WRTBasicPropertiesBridge *properties =
      WRTAwait([file getBasicPropertiesAsyncWithError:&error], &error);
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
    learnt = [NSString stringWithFormat:@"- %@", WRTErrorDescription(error)];
  }
  NSDate *modified = WRTDateFromDateTime([properties getDateModifiedWithError:NULL]);
  NSString *date = [modified descriptionWithCalendarFormat:@"%Y-%m-%d %H:%M"
                                                  timeZone:nil
                                                    locale:nil];
  [findings
      addRow:[NSArray arrayWithObjects:shownName(name), describeSize(size), date, learnt, nil]];
}
