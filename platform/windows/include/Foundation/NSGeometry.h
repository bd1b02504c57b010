#ifndef FOUNDATION_NSGEOMETRY_H
#define FOUNDATION_NSGEOMETRY_H

#import <Foundation/NSObject.h>

NS_ASSUME_NONNULL_BEGIN

/// As on every 32-bit target.
typedef float CGFloat;

typedef struct CGPoint {
  CGFloat x;
  CGFloat y;
} NSPoint;

typedef struct CGSize {
  CGFloat width;
  CGFloat height;
} NSSize;

typedef struct CGRect {
  NSPoint origin;
  NSSize size;
} NSRect;

static inline NSPoint NSMakePoint(CGFloat x, CGFloat y) {
  const NSPoint point = {x, y};
  return point;
}
static inline NSSize NSMakeSize(CGFloat width, CGFloat height) {
  const NSSize size = {width, height};
  return size;
}
static inline NSRect NSMakeRect(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
  const NSRect rect = {{x, y}, {width, height}};
  return rect;
}

NS_ASSUME_NONNULL_END

#endif
