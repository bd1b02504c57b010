// An application of the layer, whose loops may raise.

#if defined(AS_MODULE)
@import WRTSupport;
#else
#import <WRTSupport/WRTSupport.h>
#endif

int main(void) {
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  NSError *error = nil;
  int sum = 0;
  @try {
    id<WRTIVector__1_WRTHSTRING_Bridge> vector = WRTVectorOf(
        ([NSArray arrayWithObjects:@"1", @"20", nil]), WRTIVector__1_WRTHSTRING_Bridge, &error);
    for (NSString *number in WRTEach(vector, &error)) {
      sum += [number intValue];
      [vector clearWithError:&error];
    }
  } @catch (NSException *changed) {
    sum += 100;
  }
  [pool release];
  return sum == 121 && !error ? 0 : 1;
}
