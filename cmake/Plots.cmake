# QCustomPlot, which draws the history's plots: the target `tambrix_plots`. A build of one's own is
# found by its package file, or as header and library, below CMAKE_PREFIX_PATH.
find_package(Qt6 REQUIRED COMPONENTS Widgets PrintSupport)
add_library(tambrix_plots INTERFACE)
find_package(QCustomPlotQt6 CONFIG QUIET)
if(TARGET QCustomPlotQt6::QCustomPlotQt6)
  target_link_libraries(tambrix_plots INTERFACE QCustomPlotQt6::QCustomPlotQt6)
else()
  find_path(QCUSTOMPLOT_HEADERS qcustomplot.h REQUIRED)
  find_library(QCUSTOMPLOT_LIBRARY NAMES QCustomPlotQt6 qcustomplot-qt6 qcustomplot QCustomPlot REQUIRED)
  target_include_directories(tambrix_plots SYSTEM INTERFACE ${QCUSTOMPLOT_HEADERS})
  target_link_libraries(tambrix_plots INTERFACE ${QCUSTOMPLOT_LIBRARY})
endif()
target_link_libraries(tambrix_plots INTERFACE Qt6::Widgets Qt6::PrintSupport)
