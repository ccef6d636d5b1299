#pragma once

#include "controls/bit_boxes.h"
#include "controls/numeric_entry_field.h"
#include "data/duration_rules.h"
#include "shell/screen.h"

#include <array>
#include <bitset>
#include <optional>

class QGridLayout;
class QGroupBox;
class QLabel;

namespace tambrix {

class Lamp;
class ValueBar;
class ValueLabel;

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
    void load() override;
    void refreshAlways() override { showLabelName(); }
    Task enterOnline() override;
    Task onlinePass() override;
    Task offlinePass() override;
    bool passGoesOn() const override { return online() && m_load == Load::None; }

private:
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
    void renew(std::size_t index);
    EntryRange limitsOf(std::size_t index) const;
    bool checksAgain(std::size_t index) const;
    void store(std::size_t index, const QString& text, std::int32_t value);
    void storeDuration(std::size_t index, const QString& text, std::int32_t value);
    void storeLabel(const QString& text, std::int32_t value);
    void storeStation(std::int32_t value);
    void enterPressed(std::size_t index);

    Task readLabelSelect();
    Task readLabelNumber();
    Task loadLabel();
    void startLoad(std::int32_t label);
    void endLoad();
    bool loadDuration(std::size_t index);
    std::optional<std::int32_t> storedDuration(std::size_t index);
    void tellMissed(const QStringList& durations);

    bool labelExists() const;
    int slotOf(std::size_t index) const;
    static const std::string& workingRegister(std::size_t index);
    std::string storageRegister(std::size_t index);
    QString workingDuration(std::size_t index);
    void showEntry(std::size_t entry, const QString& value);
    void showInputs(int inputs);
    void showLabelName();
    void showDuration(std::size_t index, const QString& value);
    void showDensity(std::size_t index);
    void enableLabelSelect(bool enabled);
    void enableDurations(bool enabled);
    void showManual(bool enabled, int bits);
    bool writeManual();
    void changeManual(bool on);

    /// What a ductor's density is worked out from.
    struct DensityBasis
    {
        std::int32_t on;
        std::int32_t cycle;
        std::int32_t maximumOn;
        bool operator==(const DensityBasis&) const = default;
    };

    /// The load of a label's durations into the working registers.
    enum class Load {
        None,
        Wanted,        ///< to begin, from the first duration on
        Running,       ///< a field that loses the focus is checked only once
        RunningChecked ///< an entry was made meanwhile: fields are checked as ever
    };

    std::array<NumericEntryField*, kFields> m_fields{};
    std::bitset<kDurations> m_known; ///< what the fields show has been read in this mode
    std::array<ValueLabel*, kDuctors> m_densities{};
    std::array<ValueBar*, kDuctors> m_bars{};
    std::array<std::optional<DensityBasis>, kDuctors> m_densityOf; ///< as shown
    std::array<ValueLabel*, 4> m_status{};
    std::array<Lamp*, 2> m_statusLamps{}; ///< operational mode, ductors auto on
    QLabel* m_labelCaption = nullptr;
    ValueLabel* m_labelName = nullptr;
    BitBoxes m_manual;
    std::array<QGroupBox*, 4> m_frames{};

    DurationLimits m_limits;
    std::int32_t m_label = 0; ///< as the controller or the file says, which may be no label
    bool m_manualMode = false;
    bool m_labelSelect = false; ///< the controller lets labels be chosen here
    Load m_load = Load::None;
    bool m_returnFocusToLabel = false; ///< once the label has been loaded
};

} // namespace tambrix
