#import <Foundation/Foundation.h>

@class Findings;
@class WRTStorageFileBridge;

/// Learns what it can about one file, all of it through the bridges, and adds it to the findings.
void visitFile(WRTStorageFileBridge *file, Findings *findings);
