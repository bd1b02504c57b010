/// Welcomes those who are named on the command line, through bridges that the project made itself.
#import <GreeterBridge/Contoso.h>
#import <GreeterBridge/Devices.h>

#include <stdio.h>

typedef id<ContosoWRTIAsyncOperation__1_WRTGuest_P_Bridge> Welcome;

static void fail(const char *what, NSError *error) {
  fprintf(stderr, "%s: 0x%08x\n", what, (unsigned)[error code]);
  exit(1);
}

/// The guest, as soon as the greeter has one of that name.
static ContosoWRTGuestBridge *welcome(ContosoWRTGreeterBridge *greeter, NSString *name) {
  NSError *error = nil;
  NSCondition *condition = [[[NSCondition alloc] init] autorelease];
  __block BOOL isOver = NO;
  Welcome operation = [greeter welcomeAsyncWithName:name error:&error];
  [operation
      setCompletedWithHandler:^HRESULT(Welcome done, WRTAsyncStatus status) {
        [condition lock];
        isOver = YES;
        [condition signal];
        [condition unlock];
        return 0;
      }
                        error:&error];
  [condition lock];
  while (!isOver)
    [condition wait];
  [condition unlock];
  ContosoWRTGuestBridge *guest = [operation getResultsWithError:&error];
  if (!guest)
    fail("nobody came", error);
  return guest;
}

/// The catalogue's operation of that name is a proxy; its class has these members from
/// GreeterBridge.
static void listDevices(void) {
  NSError *error = nil;
  WRTIAsyncOperation__1_WRTDeviceInformationCollection_P_Bridge *operation =
      (id)[WRTDeviceInformationBridge findAllAsyncWithError:&error];
  __block BOOL isOver = NO;
  [operation
      setCompletedWithHandler:^HRESULT(
          id<WRTIAsyncOperation__1_WRTDeviceInformationCollection_P_Bridge> done,
          WRTAsyncStatus status) {
        isOver = status == WRTAsyncStatusCompleted;
        return 0;
      }
                        error:&error];
  if (!isOver) // the component answers at once
    fail("no devices", error);
  ContosoWRTDeviceInformationCollectionBridge *devices = [operation getResultsWithError:&error];
  for (unsigned i = 0; i < [devices getSizeWithError:&error]; ++i)
    printf("%s\n", [[[devices getAtWithIndex:i error:&error] getNameWithError:&error] UTF8String]);
}

int main(int count, char **arguments) {
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  NSError *error = nil;
  ContosoWRTGreeterBridge *greeter =
      [ContosoWRTGreeterBridge createGreeterWithGreeting:@"Good morning" error:&error];
  if (!greeter)
    fail("no greeter", error);

  WRTEventRegistrationToken token = [greeter
      addArrivedWithHandler:^HRESULT(ContosoWRTGreeterBridge *sender,
                                     ContosoWRTGuestBridge *guest) {
        NSString *name = [guest getNameWithError:NULL];
        printf("%s\n", [[sender greetWithWhom:name error:NULL] UTF8String]);
        return 0;
      }
                      error:&error];
  for (int i = 1; i < count; ++i)
    welcome(greeter, [NSString stringWithUTF8String:arguments[i]]);
  [greeter removeArrivedWithToken:token error:&error];

  id<ContosoWRTIVectorView__1_WRTGuest_P_Bridge> guests = [greeter getGuestsWithError:&error];
  const unsigned size = [guests getSizeWithError:&error];
  for (ContosoWRTGuestBridge *guest in [guests getManyWithStartIndex:0
                                                            capacity:size
                                                               error:&error]) {
    const ContosoWRTVisit visit = [guest getVisitWithError:&error];
    printf("%d. %s, %s, %.1f minutes\n", visit.Number, [[guest getNameWithError:&error] UTF8String],
           visit.Mood == ContosoWRTMoodMerry ? "merry" : "calm", visit.Minutes);
  }
  listDevices();
  [greeter closeWithError:&error];
  if (error)
    fail("the greeter", error);
  [pool release];
  return 0;
}
