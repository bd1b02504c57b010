/// One object behind the bridges of two add-ons that have the same types and instances.
#import <First/Contoso.h>
#import <Second/Contoso.h>

int main(void) {
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  NSError *error = nil;
  FirstWRTGreeterBridge *first = [FirstWRTGreeterBridge createGreeterWithGreeting:@"Hi"
                                                                            error:&error];
  SecondWRTGreeterBridge *second =
      [SecondWRTGreeterBridge bridge:[first _WRTIUnknownWithError:&error]];

  __block int firsts = 0;
  __block int seconds = 0;
  [first
      addArrivedWithHandler:^HRESULT(FirstWRTGreeterBridge *sender, FirstWRTGuestBridge *guest) {
        firsts += [sender isMemberOfClass:[FirstWRTGreeterBridge class]] &&
                  [guest isMemberOfClass:[FirstWRTGuestBridge class]];
        return 0;
      }
                      error:&error];
  [second
      addArrivedWithHandler:^HRESULT(SecondWRTGreeterBridge *sender, SecondWRTGuestBridge *guest) {
        seconds += [sender isMemberOfClass:[SecondWRTGreeterBridge class]] &&
                   [guest isMemberOfClass:[SecondWRTGuestBridge class]];
        return 0;
      }
                      error:&error];
  NSConditionLock *over = [[[NSConditionLock alloc] initWithCondition:NO] autorelease];
  [[second welcomeAsyncWithName:@"Ada" error:&error]
      setCompletedWithHandler:^HRESULT(id<SecondWRTIAsyncOperation__1_WRTGuest_P_Bridge> operation,
                                       WRTAsyncStatus status) {
        [over lock];
        [over unlockWithCondition:YES];
        return 0;
      }
                        error:&error];
  [over lockWhenCondition:YES];
  [over unlock];

  FirstWRTGuestBridge *guest = [[first getGuestsWithError:&error] getAtWithIndex:0 error:&error];
  SecondWRTVisit visit =
      [[[second getGuestsWithError:&error] getAtWithIndex:0 error:&error] getVisitWithError:&error];
  const BOOL isRight = firsts == 1 && seconds == 1 && visit.Number == 1 &&
                       visit.Mood == SecondWRTTemperCalm && !error &&
                       [[guest getNameWithError:&error] isEqualToString:@"Ada"];
  [pool release];
  return isRight ? 0 : 1;
}
