#import <Foundation/Foundation.h>

@class WRTStorageFolderBridge;

WRTStorageFolderBridge *openFolder(NSString *path, NSError **error);

/// Writes the text into the file of that path, an absolute one, which is replaced, or else into a
/// new one of a name like it. `*place` tells the file in either case. What cannot be written whole
/// is removed again. Nil, or what went wrong first.
NSError *writeSummary(NSString *text, const char *path, BOOL replaces, NSString **place);
