#pragma once

// zrkCore: the core utility library. Including this header brings in every
// public header of the library.

#include "frame/Types.h"
#include "frame/Export.h"
#include "frame/NoCopy.h"
#include "frame/ClassID.h"
#include "frame/EndianType.h"
#include "frame/Thread.h"
#include "frame/Console.h"
#include "frame/Assert.h"
#include "frame/ProfilingSystem.h"

#include "sync/AtomicLock.h"
#include "sync/CriticalSection.h"
#include "sync/Mutex.h"
#include "sync/SignalledObject.h"

#include "memory/SmartPtr.h"
#include "memory/PoolBase.h"

#include "text/StringConversion.h"
#include "text/GUIDIdentifier.h"
#include "text/Token.h"

#include "time/TimeInterval.h"
#include "time/TimePoint.h"
#include "time/PerformanceClock.h"
#include "time/TimerSet.h"

#include "process/EnvironmentVariable.h"
#include "process/CommandLine.h"

#include "filesystem/PathNormalisation.h"
#include "filesystem/FileFind.h"
#include "filesystem/IniFile.h"
#include "filesystem/FileName.h"

#include "shell/ShellAssociation.h"
#include "shell/OpenByMimeType.h"

#include "diagnostics/CrashDump.h"
#include "diagnostics/ModuleInfo.h"
