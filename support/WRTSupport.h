/// WRTSupport: what an Objective-C application would otherwise write for itself on top of the
/// bridges. A library of its own, which uses the bridges as an application does.
#ifndef WRT_SUPPORT_H
#define WRT_SUPPORT_H

#import <WRTSupport/WRTAsking.h>
#import <WRTSupport/WRTBoxing.h>
#import <WRTSupport/WRTBuffers.h>
#import <WRTSupport/WRTCollections.h>
#import <WRTSupport/WRTDescriptions.h>
#import <WRTSupport/WRTDispatching.h>
#import <WRTSupport/WRTEnumeration.h>
#import <WRTSupport/WRTErrorTexts.h>
#import <WRTSupport/WRTSubscription.h>
#import <WRTSupport/WRTValues.h>
#import <WRTSupport/WRTWaiting.h>

#endif
