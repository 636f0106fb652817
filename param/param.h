#pragma once

// The whole public interface of the param library.

#include <utils/utils.h>

#include <param/errors.h>
#include <param/export.h>

// Serialisation nodes and documents
#include <param/seri/errorStep.h>
#include <param/seri/recordIo.h>
#include <param/seri/seriArray.h>
#include <param/seri/seriDocument.h>
#include <param/seri/seriInfo.h>
#include <param/seri/seriObject.h>
#include <param/seri/seriOption.h>
#include <param/seri/variant.h>

// Parameter records
#include <param/params/axAngleCtrlData.h>
#include <param/params/axDivCtrlData.h>
#include <param/params/axRingCtrlData.h>
#include <param/params/axRotMoveCtrlData.h>
#include <param/params/axRotTextCtrlData.h>
#include <param/params/axSupRulerCtrlData.h>
#include <param/params/axisCommands.h>
#include <param/params/extParam.h>
#include <param/params/markContext.h>
#include <param/params/markCtrlData.h>
#include <param/params/mrPara.h>
#include <param/params/optimizeFocusParam.h>
#include <param/params/paramArray.h>
#include <param/params/penArray.h>
#include <param/params/penParam.h>
#include <param/params/projectCtrlData.h>
#include <param/params/pulsePointParam.h>
#include <param/params/stepMarkParam.h>
#include <param/params/wobbleParam.h>

// Managers and library start-up
#include <param/mgr/colorMgr.h>
#include <param/mgr/defaultParamMgr.h>
#include <param/mgr/initParam.h>

// Geometry
#include <param/shape/mPointF2d.h>
#include <param/shape/point2dConcept.h>
