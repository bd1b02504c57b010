// The same application in Objective-C++.
#import "application.m"
