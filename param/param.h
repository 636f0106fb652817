#pragma once

// The whole public interface of the param library.

#include <utils/utils.h>

#include <param/errors.h>
#include <param/export.h>

// Serialisation nodes and documents
#include <param/seri/errorStep.h>
#include <param/seri/loadReport.h>
#include <param/seri/recordIo.h>
#include <param/seri/seriArray.h>
#include <param/seri/seriDocument.h>
#include <param/seri/seriInfo.h>
#include <param/seri/seriObject.h>
#include <param/seri/seriOption.h>
#include <param/seri/variant.h>

// Parameter records
#include <param/params/arrayParam.h>
#include <param/params/axAngleCtrlData.h>
#include <param/params/axDivCtrlData.h>
#include <param/params/axRingCtrlData.h>
#include <param/params/axRotMoveCtrlData.h>
#include <param/params/axRotTextCtrlData.h>
#include <param/params/axSupRulerCtrlData.h>
#include <param/params/axisCommands.h>
#include <param/params/axisRunData.h>
#include <param/params/axisSetting.h>
#include <param/params/circularArrayParam.h>
#include <param/params/dataRecordParam.h>
#include <param/params/extAxisPar.h>
#include <param/params/extAxisParArray.h>
#include <param/params/extParam.h>
#include <param/params/fillLayerParam.h>
#include <param/params/fillParam.h>
#include <param/params/flyParam.h>
#include <param/params/galvoBox.h>
#include <param/params/galvoCalPar.h>
#include <param/params/galvoEquiScale.h>
#include <param/params/galvoParam.h>
#include <param/params/gpiPar.h>
#include <param/params/gpoPar.h>
#include <param/params/ioParam.h>
#include <param/params/laserParam.h>
#include <param/params/lmcParam.h>
#include <param/params/markContext.h>
#include <param/params/markCtrlData.h>
#include <param/params/markParam.h>
#include <param/params/mrPara.h>
#include <param/params/optimizeFocusParam.h>
#include <param/params/paramArray.h>
#include <param/params/penArray.h>
#include <param/params/penParam.h>
#include <param/params/projectCtrlData.h>
#include <param/params/pulsePointParam.h>
#include <param/params/rectArrayParam.h>
#include <param/params/redlightParam.h>
#include <param/params/stepMarkParam.h>
#include <param/params/wobbleParam.h>

// Managers and library start-up
#include <param/mgr/colorMgr.h>
#include <param/mgr/defaultParamMgr.h>
#include <param/mgr/initParam.h>

// Legacy binary reader
#include <param/legacy/encodingNames.h>
#include <param/legacy/seaWString.h>
#include <param/legacy/sriBase.h>
#include <param/legacy/sriFile.h>
#include <param/legacy/sriMemory.h>
#include <param/legacy/sriProxy.h>
#include <param/legacy/sriWchar.h>
#include <param/legacy/wcharAdapter.h>

// Wobble paths
#include <param/wobble/wobblePathProc.h>

// Geometry
#include <param/shape/anchorPoint.h>
#include <param/shape/bezierPath.h>
#include <param/shape/calcUtil.h>
#include <param/shape/contentBasePaths.h>
#include <param/shape/mPointF2d.h>
#include <param/shape/matrix2d.h>
#include <param/shape/pathConcept.h>
#include <param/shape/point2dConcept.h>
#include <param/shape/rect2dConcept.h>
#include <param/shape/rectF2ds.h>
#include <param/shape/segments/arcSegment.h>
#include <param/shape/segments/bezierSegment.h>
#include <param/shape/segments/cardinalSplineSegment.h>
#include <param/shape/segments/lineSegment.h>
#include <param/shape/segments/nurbsSegment.h>
#include <param/shape/segments/segmentBase.h>
