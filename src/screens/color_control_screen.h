#pragma once

#include "controls/bit_boxes.h"
#include "controls/numeric_entry_field.h"
#include "screens/color_math.h"
#include "shell/screen.h"

#include <array>

class QGridLayout;
class QGroupBox;
class QLabel;

namespace tambrix {

/// The colour data of one label at a time: ON and CYCLE duration of every ductor. Besides, the
/// station number, the solenoids' response times, and the ductors switched by hand.
class ColorControlScreen : public Screen
{
    Q_OBJECT

public:
    explicit ColorControlScreen(ProgramState& state);

protected:
    void applyOnlineView() override;
    void applyOfflineView() override;
    Task onlinePass() override;
    Task offlinePass() override;
    bool passGoesOn() const override { return online() && !m_loadWanted; }

private:
    static constexpr const char* kLabelNumberRegister = "W686";
    static constexpr const char* kStationRegister = "B63";
    static constexpr std::size_t kDurations = kEntriesPerLabel; ///< fields 0 to 15
    static constexpr std::size_t kLabelField = 16;
    static constexpr std::size_t kStationField = 17;
    static constexpr std::size_t kFields = 18;

    void buildFields();
    QGroupBox* makeColorFrame();
    void addDuctorRow(QGridLayout& grid, int ductor);
    QGroupBox* makeStatusFrame();
    QGroupBox* makeResponseFrame();
    QGroupBox* makeManualFrame();
    void setReadingOrder();

    EntryRules rulesOf(std::size_t index);
    void reload(std::size_t index);
    void limit(std::size_t index);
    void store(std::size_t index, const QString& text, std::int32_t value);
    void storeDuration(std::size_t index, const QString& text, std::int32_t value);
    void storeLabel(const QString& text, std::int32_t value);
    void storeStation(std::int32_t value);
    void enterPressed(std::size_t index);

    Task readLabelSelect();
    Task readLabelNumber();
    Task loadLabel();
    void startLoad();
    void endLoad();
    void loadDuration(std::size_t index);

    void setLabel(std::int32_t label);
    int slotOf(std::size_t index) const;
    static const std::string& workingRegister(std::size_t index);
    std::string storageRegister(std::size_t index);
    QString readRegister(const std::string& address, const QString& otherwise);
    void showEntry(std::size_t entry, const QString& value);
    void showInputs(int inputs);
    void showManualBits(int bits);
    void showDuration(std::size_t index, const QString& value);
    void showDensity(std::size_t index);
    void enableLabelSelect(bool enabled);
    void enableManual(bool enabled);

    std::array<NumericEntryField*, kFields> m_fields{};
    std::array<QLabel*, kDuctors> m_densities{};
    std::array<QLabel*, 4> m_status{};
    QLabel* m_labelCaption = nullptr;
    BitBoxes m_manual;
    std::array<QGroupBox*, 4> m_frames{};

    DurationLimits m_limits;
    std::int32_t m_label = 0;
    bool m_labelSelect = false;        ///< the controller lets labels be chosen here
    bool m_loadWanted = false;         ///< a label is to be loaded, from its first duration on
    bool m_labelLoading = false;       ///< checks on lost focus keep off
    bool m_returnFocusToLabel = false; ///< once the label has been loaded
};

} // namespace tambrix
