#import <Foundation/Foundation.h>

@class Findings;
@class WRTStorageFileBridge;

/// Learns what it can about one file, all of it through the bridges, and adds it to the findings.
/// The folder, empty or with a slash at its end, goes before the file's name.
void visitFile(WRTStorageFileBridge *file, NSString *folder, Findings *findings);
