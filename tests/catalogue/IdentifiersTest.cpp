// Identifiers of generic instantiations, each published by the Windows SDK or computed apart from
// the generator.

#include <abi/IAsyncOperation.abi.h>
#include <abi/IAsyncOperationWithProgress.abi.h>
#include <abi/IIterable.abi.h>
#include <abi/IMap.abi.h>
#include <abi/IMapView.abi.h>
#include <abi/IObservableMap.abi.h>
#include <abi/IReference.abi.h>
#include <abi/IVector.abi.h>
#include <abi/IVectorView.abi.h>
#include <abi/Windows.Foundation.Collections.abi.h>
#include <abi/Windows.Foundation.abi.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <utility>

namespace {

std::string text(const GUID &guid) {
  char buffer[40];
  std::snprintf(buffer, sizeof buffer, "%08x-%04x-%04x-%02x%02x-%02x%02x%02x%02x%02x%02x",
                static_cast<unsigned>(guid.Data1), guid.Data2, guid.Data3, guid.Data4[0],
                guid.Data4[1], guid.Data4[2], guid.Data4[3], guid.Data4[4], guid.Data4[5],
                guid.Data4[6], guid.Data4[7]);
  return buffer;
}

} // namespace

TEST(Identifiers, AreThePublishedOnes) {
  const std::pair<const char *, const GUID *> identifiers[] = {
      {"00000036-0000-0000-c000-000000000046", &kWRTIAsyncInfoIID},
      {"5a648006-843a-4da9-865b-9d26e5dfad7b", &kWRTIAsyncActionIID},
      {"575933df-34fe-4480-af15-07691f3d5d9b", &kWRTIVectorChangedEventArgsIID},
      {"3e1fe603-f897-5263-b328-0806426b8a79", &kWRTIAsyncOperation__1_WRTHSTRINGIID},
      {"cdb5efb3-5788-509d-9be1-71ccb8a3362a", &kWRTIAsyncOperation__1_WRTboolIID},
      {"ef60385f-be78-584b-aaef-7829ada2b0de", &kWRTIAsyncOperation__1_WRTUINT32IID},
      {"abf53c57-ee50-5342-b52a-26e3b8cc024f", &kWRTIAsyncOperation__1_WRTIInspectable_PIID},
      {"eccb574a-c684-5572-a679-6b0842cfb57f",
       &kWRTIAsyncOperationWithProgress__2_WRTUINT32_WRTUINT32IID},
      {"98b9acc1-4b56-532e-ac73-03d5291cca90", &kWRTIVector__1_WRTHSTRINGIID},
      {"2f13c006-a03a-5f69-b090-75a43e33423e", &kWRTIVectorView__1_WRTHSTRINGIID},
      {"e2fcc7c1-3bfc-5a0b-b2b0-72e769d1cb7e", &kWRTIIterable__1_WRTHSTRINGIID},
      {"1b0d3570-0877-5ec2-8a2c-3b9539506aca", &kWRTIMap__2_WRTHSTRING_WRTIInspectable_PIID},
      {"bb78502a-f79d-54fa-92c9-90c5039fdf7e", &kWRTIMapView__2_WRTHSTRING_WRTIInspectable_PIID},
      {"236aac9d-fb12-5c4d-a41c-9e445fb4d7ec",
       &kWRTIObservableMap__2_WRTHSTRING_WRTIInspectable_PIID},
      {"548cefbd-bc8a-5fa0-8df2-957440fc8bf4", &kWRTIReference__1_WRTINT32IID},
      {"513ef3af-e784-5325-a91e-97c2b8111cf3", &kWRTIReference__1_WRTUINT32IID},
      {"2f2d6c29-5473-5f3e-92e7-96572bb990e2", &kWRTIReference__1_WRTDOUBLEIID},
      {"719cc2ba-3e76-5def-9f1a-38d85a145ea8", &kWRTIReference__1_WRTFLOATIID},
      {"3c00fd60-2950-5939-a21a-2d12c5a01b8a", &kWRTIReference__1_WRTbooleanIID},
      {"5541d8a7-497c-5aa4-86fc-7713adbf2a2c", &kWRTIReference__1_WRTDateTimeIID},
      {"604d0c4c-91de-5c2a-935f-362f13eaf800", &kWRTIReference__1_WRTTimeSpanIID},
      {"ab8e5d11-b0c1-5a21-95ae-f16bf3a37624", &kWRTIReference__1_WRTColorIID},
      {"3bee8834-b9a7-5a80-a746-5ef097227878", &kWRTIAsyncOperation__1_WRTIBuffer_PIID},
      {"d26b2819-897f-5c7d-84d6-56d796561431",
       &kWRTIAsyncOperationWithProgress__2_WRTIBuffer_P_WRTUINT32IID},
      {"139d959e-e7b5-5cb6-a596-4b544478da9b", &kWRTIVectorView__1_WRTIXmlNode_PIID},
      {"5e52f8ce-aced-5a42-95b4-f674dd84885e", &kWRTIAsyncOperation__1_WRTStorageFile_PIID},
      {"6be9e7d7-e83a-5cbc-802c-1768960b52c3", &kWRTIAsyncOperation__1_WRTStorageFolder_PIID},
      {"07faa053-eb2f-5cba-b25b-d9d57be6715f", &kWRTIAsyncOperation__1_WRTDeviceInformation_PIID},
      {"45180254-082e-5274-b2e7-ac0517f44d07",
       &kWRTIAsyncOperation__1_WRTDeviceInformationCollection_PIID},
      {"80646519-5e2a-595d-a8cd-2a24b4067f1b", &kWRTIVectorView__1_WRTStorageFile_PIID},
      {"0327c8bc-3148-53f3-8a3d-cdb12e49e132",
       &kWRTIAsyncOperation__1_WRTVariablePhotoSequenceCapture_PIID},
      {"5239a934-80e2-518f-b819-1f316f379a3f", &kWRTIAsyncOperation__1_WRTStartupTaskStateIID},
      {"8b98aea9-64f0-5672-b30e-dfd9c2e4f6fe", &kWRTIAsyncOperation__1_WRTDataPackageOperationIID},
      {"fe2f3d47-5d47-5499-8374-430c7cda0204",
       &kWRTIIterable__1_WRTIKeyValuePair__2_WRTHSTRING_WRTIInspectable_P_PIID},
      {"03362e33-e413-5f29-97d0-48a4780935f9",
       &kWRTIAsyncOperation__1_WRTIVectorView__1_WRTStorageFile_P_PIID},
      {"ae44597e-d411-5b7f-bbec-6a96c94a107a", &kWRTIIterable__1_WRTIIterable__1_WRTPoint_PIID},
  };
  for (const auto &[published, guid] : identifiers)
    EXPECT_EQ(published, text(*guid));
}
