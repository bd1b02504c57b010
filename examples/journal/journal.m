// A folder's journal: lists its files with their dates, keeps a record of them as data and as XML,
// reads both back and counts the changes of the list.
//
// Written as a new user would, with docs/application.md at hand and without helpers of its own for
// waiting, dates, data or errors.
#import <WRTObjcBridge/WRTConversions.h>
#import <WRTObjcBridge/Windows.Data.Xml.Dom.h>
#import <WRTObjcBridge/Windows.Storage.FileProperties.h>
#import <WRTObjcBridge/Windows.Storage.Search.h>
#import <WRTObjcBridge/Windows.Storage.Streams.h>
#import <WRTObjcBridge/Windows.Storage.h>
#import <WRTObjcBridge/Windows.UI.Xaml.h>
#import <WRTSupport/WRTSupport.h>

#include <stdio.h>

/// Says what failed; the program's exit status.
static int failed(const char *what, NSError *error) {
  fprintf(stderr, "journal: cannot %s: %s\n", what, [WRTErrorDescription(error) UTF8String]);
  return 1;
}

/// An element for each file, with its size and date; nil and an error if one cannot be looked at.
static WRTXmlDocumentBridge *listed(id files, WRTResourceDictionaryBridge *sizes, NSError **error) {
  WRTXmlDocumentBridge *document = [[[WRTXmlDocumentBridge alloc] init] autorelease];
  [document loadXmlWithXml:@"<journal/>" error:error];
  WRTXmlElementBridge *root = [document getDocumentElementWithError:error];
  for (WRTStorageFileBridge *file in WRTEach((id<WRTIVectorView__1_WRTStorageFile_P_Bridge>)files,
                                             error)) {
    WRTBasicPropertiesBridge *properties =
        WRTAwait([file getBasicPropertiesAsyncWithError:error], error);
    if (!properties)
      return nil;
    NSString *name = [file getNameWithError:error];
    NSNumber *size = @([properties getSizeWithError:error]);
    NSDate *date = WRTDateFromDateTime([properties getDateModifiedWithError:error]);
    printf("%-16s %8llu  %s\n", [name UTF8String], [size unsignedLongLongValue],
           [[date description] UTF8String]);
    WRTXmlElementBridge *element = [document createElementWithTagName:@"file" error:error];
    [element setAttributeWithAttributeName:@"name" attributeValue:name error:error];
    [element setAttributeWithAttributeName:@"size" attributeValue:[size description] error:error];
    [root appendChildWithNewChild:(id)element error:error];
    bool replaced = false;
    [sizes insertWithKey:WRTBox(name) value:WRTBox(size) replaced:&replaced error:error];
  }
  return *error ? nil : document;
}

/// Writes the bytes into a new file of the folder, reads them from there and removes it.
static NSData *thereAndBack(WRTStorageFolderBridge *folder, NSData *data, NSError **error) {
  WRTStorageFileBridge *file =
      WRTAwait([folder createFileAsyncWithDesiredName:@"journal.bin"
                                              options:WRTCreationCollisionOptionGenerateUniqueName
                                                error:error],
               error);
  if (!file || !WRTAwait([WRTFileIOBridge writeBufferAsyncWithFile:(id)file
                                                            buffer:WRTBufferFromData(data, error)
                                                             error:error],
                         error))
    return nil;
  NSData *again = WRTCreateNSDataFromRandomAccessStreamReference(
      [WRTRandomAccessStreamReferenceBridge createFromFileWithFile:(id)file error:error]);
  WRTAwait([file deleteAsyncOverloadDefaultOptionsWithError:NULL], (NSError **)NULL);
  return again;
}

static int journal(NSString *path, NSString *scratch) {
  NSError *error = nil;
  WRTStorageFolderBridge *folder =
      WRTAwait([WRTStorageFolderBridge getFolderFromPathAsyncWithPath:path error:&error], &error);
  WRTStorageFolderBridge *place =
      folder
          ? WRTAwait([WRTStorageFolderBridge getFolderFromPathAsyncWithPath:scratch error:&error],
                     &error)
          : nil;
  if (!place)
    return failed("open the folder", error);
  WRTStorageFileQueryResultBridge *query =
      [folder createFileQueryWithQuery:WRTCommonFileQueryOrderByName error:&error];
  __block int changes = 0;
  WRTSubscription *watching =
      WRTSubscribe(query, ContentsChanged, Handler, &error,
                   ^HRESULT(id<WRTIStorageQueryResultBaseBridge> sender, id unused) {
                     (void)sender, (void)unused;
                     ++changes;
                     return 0;
                   });
  if (!watching)
    return failed("watch the folder", error);
  id files = WRTAwait([query getFilesAsyncDefaultStartAndCountWithError:&error], &error);
  WRTResourceDictionaryBridge *sizes = [[[WRTResourceDictionaryBridge alloc] init] autorelease];
  WRTXmlDocumentBridge *document = files ? listed(files, sizes, &error) : nil;
  if (!document)
    return failed("list the files", error);

  NSString *xml = [document getXmlWithError:&error];
  NSData *data = thereAndBack(place, [xml dataUsingEncoding:NSUTF8StringEncoding], &error);
  if (!data)
    return failed("write the journal", error);
  WRTXmlDocumentBridge *again = [[[WRTXmlDocumentBridge alloc] init] autorelease];
  [again loadXmlWithXml:[[[NSString alloc] initWithData:data
                                               encoding:NSUTF8StringEncoding] autorelease]
                  error:&error];
  unsigned elements = [[again selectNodesWithXpath:@"/journal/file"
                                             error:&error] getLengthWithError:&error];
  unsigned long long bytes = 0;
  NSDictionary *kept = WRTDictionary(sizes, &error);
  for (NSString *name in kept)
    bytes += [WRTUnbox([kept objectForKey:name], &error) unsignedLongLongValue];
  printf("%u files, %llu bytes, in %lu bytes of XML\n", elements, bytes,
         (unsigned long)[data length]);

  id options = [[[WRTQueryOptionsBridge alloc] init] autorelease];
  [query applyNewQueryOptionsWithNewQueryOptions:options error:&error];
  [watching cancel];
  printf("changes of the list: %d\n", changes);
  return error ? failed("finish", error) : 0;
}

int main(int argc, char **argv) {
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  NSString *path = [NSString stringWithUTF8String:argc > 1 ? argv[1] : JOURNAL_DATA];
  int status = journal(path, NSTemporaryDirectory());
  [pool release];
  return status;
}
