// Components compute the identifiers of parameterised interfaces by themselves; the generated
// headers have those of the declared instances. One instance of each kind of type argument, here
// compared when compiled: `interfaceCast` refuses declarations of different interfaces.

#include "platform/linux/components/async/AsyncInterfaces.h"
#include "platform/linux/components/collections/CollectionInterfaces.h"
#include "platform/linux/components/collections/ObservableInterfaces.h"
#include "platform/linux/components/generic/InterfaceCast.h"
#include "platform/linux/components/values/PropertyTypes.h"
#include "platform/linux/components/values/ReferenceInterfaces.h"

#include <WRTObjcBridge/types/Windows.UI.h>
#include <abi/IAsyncOperation.abi.h>
#include <abi/IAsyncOperationWithProgress.abi.h>
#include <abi/IIterable.abi.h>
#include <abi/IIterator.abi.h>
#include <abi/IMap.abi.h>
#include <abi/IMapView.abi.h>
#include <abi/IObservableMap.abi.h>
#include <abi/IObservableVector.abi.h>
#include <abi/IReference.abi.h>
#include <abi/IVector.abi.h>
#include <abi/IVectorView.abi.h>
#include <abi/Windows.Foundation.Collections.abi.h>
#include <abi/Windows.Storage.Streams.abi.h>
#include <abi/Windows.Storage.abi.h>

namespace wrt::implement {
namespace {

template <class Declared, class Own>
constexpr bool areOne = Declared::kIid == Own::kIid;

using File = ClassRef<abi::IStorageFile, "Windows.Storage.StorageFile">;
using Folder = ClassRef<abi::IStorageFolder, "Windows.Storage.StorageFolder">;
using Item = Ref<abi::IStorageItem>;
using Buffer = Ref<abi::IBuffer>;
using Pair = PairOf<String, Ref<IVector<String>>>;

static_assert(areOne<abi::IAsyncAction, IAsyncAction>);
static_assert(areOne<abi::AsyncActionCompletedHandler, CompletedHandler<void, void>>);
static_assert(areOne<abi::IAsyncOperation__1_WRTbool, IAsyncOperation<Boolean>>);
static_assert(
    areOne<abi::IAsyncOperationCompletedHandler__1_WRTbool, CompletedHandler<Boolean, void>>);
static_assert(areOne<abi::IAsyncOperation__1_WRTStorageFile_P, IAsyncOperation<File>>);
static_assert(areOne<abi::IAsyncOperation__1_WRTIInspectable_P, IAsyncOperation<Inspectable>>);
static_assert(
    areOne<
        abi::IAsyncOperation__1_WRTDataPackageOperation,
        IAsyncOperation<FlagsEnum<"Windows.ApplicationModel.DataTransfer.DataPackageOperation">>>);
static_assert(areOne<abi::IAsyncOperation__1_WRTIVectorView__1_WRTStorageFile_P_P,
                     IAsyncOperation<Ref<IVectorView<File>>>>);
static_assert(areOne<abi::IAsyncOperationWithProgress__2_WRTIBuffer_P_WRTUINT32,
                     IAsyncOperationWithProgress<Buffer, UInt32>>);
static_assert(areOne<abi::IAsyncOperationProgressHandler__2_WRTIBuffer_P_WRTUINT32,
                     ProgressHandler<Buffer, UInt32>>);
static_assert(areOne<abi::IAsyncOperationWithProgressCompletedHandler__2_WRTIBuffer_P_WRTUINT32,
                     CompletedHandler<Buffer, UInt32>>);

static_assert(areOne<abi::IIterator__1_WRTIStorageItem_P, IIterator<Item>>);
static_assert(areOne<abi::IIterable__1_WRTHSTRING, IIterable<String>>);
static_assert(areOne<abi::IIterable__1_WRTIKeyValuePair__2_WRTHSTRING_WRTIVector__1_WRTHSTRING_P_P,
                     IIterable<Pair>>);
static_assert(
    areOne<abi::IIterable__1_WRTIIterable__1_WRTPoint_P, IIterable<Ref<IIterable<Point>>>>);
static_assert(areOne<abi::IVector__1_WRTStorageFolder_P, IVector<Folder>>);
static_assert(
    areOne<abi::IVectorView__1_WRTFocusMode, IVectorView<Enum<"Windows.Media.Devices.FocusMode">>>);
static_assert(areOne<abi::IMap__2_WRTGUID_WRTIInspectable_P, IMap<Guid, Inspectable>>);
static_assert(
    areOne<abi::IMap__2_WRTIInspectable_P_WRTIInspectable_P, IMap<Inspectable, Inspectable>>);
static_assert(areOne<abi::IMapView__2_WRTHSTRING_WRTIVector__1_WRTHSTRING_P,
                     IMapView<String, Ref<IVector<String>>>>);
static_assert(areOne<abi::IObservableMap__2_WRTHSTRING_WRTIInspectable_P,
                     IObservableMap<String, Inspectable>>);
static_assert(areOne<abi::IObservableVector__1_WRTIInspectable_P, IObservableVector<Inspectable>>);
static_assert(areOne<abi::VectorChangedEventHandler__1_WRTStorageFolder_P,
                     VectorChangedEventHandler<Folder>>);
static_assert(areOne<abi::IVectorChangedEventArgs, IVectorChangedEventArgs>);

static_assert(areOne<abi::IReference__1_WRTDOUBLE, IReference<Double>>);
static_assert(areOne<abi::IReference__1_WRTboolean, IReference<Boolean>>);
static_assert(areOne<abi::IReference__1_WRTDateTime, IReference<DateTime>>);
static_assert(areOne<abi::IReference__1_WRTColor,
                     IReference<Struct<WRTColor, "Windows.UI.Color", UInt8, UInt8, UInt8, UInt8>>>);

} // namespace
} // namespace wrt::implement
