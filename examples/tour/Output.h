// The output stream, on which nothing may get lost without a word.

#import <Foundation/Foundation.h>

/// Gets the streams ready; NO, having said so, if there is no output stream.
BOOL openOutput(void);
/// Writes the text, unless writing has failed before.
void print(NSString *text);
/// Writes what is still held; NO, having said so once, if anything could not be written.
BOOL closeOutput(void);
/// The width of the terminal that the output goes to; 0 if it goes elsewhere.
NSUInteger outputColumns(void);
