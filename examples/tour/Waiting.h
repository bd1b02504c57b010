#import <Foundation/Foundation.h>

/// Waits until an asynchronous operation (any of its bridges) has ended and returns it; nil with an
/// error if there is none or its end cannot be learnt. What the operation has come to, its
/// `getResultsWithError:` tells.
id waitFor(id operation, NSError **error);
