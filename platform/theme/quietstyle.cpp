#include "platform/theme/quietstyle.h"

#include <algorithm>
#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QPainter>
#include <QScrollBar>
#include <QTabBar>
#include <QToolButton>

#include "platform/theme/icon.h"
#include "platform/theme/quietpaint.h"
#include "platform/theme/theme.h"

namespace {

/// Pixels on either side of a tool button's content.
constexpr int ToolButtonPadding = 4;

bool isDefaultButton(const QStyleOption* option) {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    return button != nullptr && button->features.testFlag(QStyleOptionButton::DefaultButton) &&
           !button->features.testFlag(QStyleOptionButton::Flat);
}

/// Draws a picture in another colour than the palette's.
QIcon inColour(const QIcon& icon, QSize size, const QColor& colour, double devicePixelRatio) {
    QPixmap drawing = icon.pixmap(size, devicePixelRatio);
    QPainter painter(&drawing);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRect(QPoint(), size), colour);
    painter.end();
    return drawing;
}

/// Whether this is a text field inside a combo or spin box, which draws the frame itself.
bool isInsideField(const QWidget* widget) {
    return widget != nullptr && widget->parentWidget() != nullptr &&
           (widget->parentWidget()->inherits("QComboBox") || widget->parentWidget()->inherits("QAbstractSpinBox"));
}

}  // namespace

QuietStyle::QuietStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void QuietStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    switch (element) {
        case PE_PanelButtonCommand: {
            const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
            const bool flat = button != nullptr && button->features.testFlag(QStyleOptionButton::Flat);
            return flat ? quiet::toolButton(*painter, *option)
                        : quiet::pushButton(*painter, *option, isDefaultButton(option));
        }
        case PE_FrameDefaultButton:
            return;
        case PE_PanelButtonTool:
            return quiet::toolButton(*painter, *option);
        case PE_PanelLineEdit:
        case PE_FrameLineEdit:
            if (!isInsideField(widget))
                quiet::fieldFrame(*painter, *option);
            return;
        case PE_IndicatorCheckBox:
        case PE_IndicatorItemViewItemCheck:
            return quiet::checkBox(*painter, *option);
        case PE_IndicatorRadioButton:
            return quiet::radioButton(*painter, *option);
        case PE_FrameFocusRect:
            // Buttons and fields have their focus ring on the border. Rows have a fill and a thin ring.
            if (widget == nullptr || !widget->inherits("QPushButton"))
                quiet::panel(*painter, option->rect, Qt::transparent, option->palette.color(QPalette::Link), 1);
            return;
        case PE_FrameGroupBox:
            return quiet::panel(*painter, option->rect, Qt::transparent, option->palette.color(QPalette::Mid));
        case PE_Frame:
            painter->setPen(
                option->palette.color(option->state.testFlag(State_HasFocus) ? QPalette::Link : QPalette::Mid));
            painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
            return;
        case PE_PanelTipLabel:
            painter->fillRect(option->rect, option->palette.color(QPalette::ToolTipBase));
            painter->setPen(option->palette.color(QPalette::Mid));
            painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
            return;
        case PE_PanelStatusBar:
            painter->setPen(option->palette.color(QPalette::Mid));
            painter->drawLine(option->rect.topLeft(), option->rect.topRight());
            return;
        case PE_FrameStatusBarItem:
            return;
        case PE_FrameTabWidget:
        case PE_FrameTabBarBase:
            painter->setPen(option->palette.color(QPalette::Mid));
            painter->drawLine(option->rect.topLeft(), option->rect.topRight());
            return;
        default:
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void QuietStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    switch (element) {
        case CE_PushButtonLabel:
            if (isDefaultButton(option) && option->state.testFlag(State_Enabled)) {
                QStyleOptionButton label = *qstyleoption_cast<const QStyleOptionButton*>(option);
                label.palette.setColor(QPalette::ButtonText, label.palette.color(QPalette::BrightText));
                if (!label.icon.isNull())
                    label.icon = inColour(label.icon, label.iconSize, label.palette.color(QPalette::BrightText),
                                          painter->device()->devicePixelRatioF());
                QProxyStyle::drawControl(element, &label, painter, widget);
                return;
            }
            break;
        case CE_ToolButtonLabel:
            if (const auto* button = qstyleoption_cast<const QStyleOptionToolButton*>(option);
                button != nullptr && button->toolButtonStyle == Qt::ToolButtonTextBesideIcon) {
                QStyleOptionToolButton label = *button;
                label.rect.adjust(ToolButtonPadding, 0, ToolButtonPadding, 0);
                QProxyStyle::drawControl(element, &label, painter, widget);
                return;
            }
            break;
        case CE_HeaderSection:
            if (const auto* header = qstyleoption_cast<const QStyleOptionHeader*>(option))
                return quiet::headerSection(*painter, *header);
            break;
        case CE_HeaderEmptyArea: {
            painter->fillRect(option->rect, option->palette.color(QPalette::Window));
            painter->setPen(option->palette.color(QPalette::Mid));
            painter->drawLine(option->rect.bottomLeft(), option->rect.bottomRight());
            return;
        }
        case CE_TabBarTabShape:
            if (const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(option))
                return quiet::tab(*painter, *tab);
            break;
        case CE_Splitter:
            return quiet::splitter(*painter, *option);
        case CE_ToolBar:
            painter->fillRect(option->rect, option->palette.color(QPalette::Window));
            painter->setPen(option->palette.color(QPalette::Mid));
            painter->drawLine(option->rect.bottomLeft(), option->rect.bottomRight());
            return;
        case CE_MenuBarItem:
            if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
                quiet::menuBarItem(*painter, *item);
                drawItemText(painter, item->rect, Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextDontClip,
                             item->palette, item->state.testFlag(State_Enabled), item->text, QPalette::WindowText);
                return;
            }
            break;
        case CE_MenuBarEmptyArea:
            painter->fillRect(option->rect, option->palette.color(QPalette::Window));
            return;
        default:
            break;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void QuietStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                    const QWidget* widget) const {
    if (const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option); combo && control == CC_ComboBox)
        return quiet::comboBox(*painter, *combo, subControlRect(control, option, SC_ComboBoxArrow, widget));
    if (const auto* spin = qstyleoption_cast<const QStyleOptionSpinBox*>(option); spin && control == CC_SpinBox)
        return quiet::spinBox(*painter, *spin, subControlRect(control, option, SC_SpinBoxUp, widget),
                              subControlRect(control, option, SC_SpinBoxDown, widget));
    if (const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option); slider && control == CC_ScrollBar)
        return quiet::scrollBar(*painter, *slider, subControlRect(control, option, SC_ScrollBarSlider, widget));
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect QuietStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                 const QWidget* widget) const {
    if (control == CC_GroupBox && part == SC_GroupBoxFrame) {
        // The title stands above the frame, not across it.
        QRect frame = QProxyStyle::subControlRect(control, option, part, widget);
        const auto* box = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
        if (box != nullptr && !box->text.isEmpty())
            frame.setTop(QProxyStyle::subControlRect(control, option, SC_GroupBoxLabel, widget).bottom() + 4);
        return frame;
    }
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_ScrollBar || bar == nullptr)
        return QProxyStyle::subControlRect(control, option, part, widget);

    // There are no arrow buttons, so the groove is the whole bar.
    const bool across = bar->orientation == Qt::Horizontal;
    const int length = across ? bar->rect.width() : bar->rect.height();
    const int range = bar->maximum - bar->minimum;
    const int least = std::min(length, pixelMetric(PM_ScrollBarSliderMin, option, widget));
    const int size = range <= 0 ? length
                                : std::clamp(static_cast<int>(static_cast<qint64>(length) * bar->pageStep /
                                                              (static_cast<qint64>(range) + bar->pageStep)),
                                             least, length);
    const int start =
        sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition, length - size, bar->upsideDown);
    const auto along = [&](int from, int extent) {
        const QRect rect =
            across ? QRect(from, 0, extent, bar->rect.height()) : QRect(0, from, bar->rect.width(), extent);
        return visualRect(bar->direction, bar->rect, rect);
    };
    switch (part) {
        case SC_ScrollBarSlider:
            return along(start, size);
        case SC_ScrollBarGroove:
            return bar->rect;
        case SC_ScrollBarSubPage:
            return along(0, start);
        case SC_ScrollBarAddPage:
            return along(start + size, length - start - size);
        default:
            return {};
    }
}

QRect QuietStyle::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const {
    const QRect rect = QProxyStyle::subElementRect(element, option, widget);
    // The text keeps the distance from the border that a combo box's text keeps.
    return element == SE_LineEditContents && !isInsideField(widget) ? rect.adjusted(3, 0, -3, 0) : rect;
}

QSize QuietStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                   const QWidget* widget) const {
    QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
    const int least = option == nullptr ? 0 : option->fontMetrics.height() + 11;
    switch (type) {
        case CT_PushButton:
            result.setHeight(std::max(result.height(), least));
            result.rwidth() += 8;
            break;
        case CT_LineEdit:
            if (!isInsideField(widget))
                result.setHeight(std::max(result.height(), least));
            break;
        case CT_ComboBox:
        case CT_SpinBox:
            result.setHeight(std::max(result.height(), least));
            break;
        case CT_ToolButton:
            result += QSize(2 * ToolButtonPadding, 4);
            break;
        case CT_MenuBarItem:
            result += QSize(6, 5);
            break;
        case CT_CheckBox:
        case CT_RadioButton:
            result.setHeight(std::max(result.height(), least - 7));
            break;
        case CT_TabBarTab:
            result += QSize(8, 6);
            break;
        case CT_HeaderSection:
            result.setHeight(std::max(result.height(), least));
            break;
        case CT_MenuItem:
            if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
                item != nullptr && item->menuItemType != QStyleOptionMenuItem::Separator)
                result.setHeight(std::max(result.height(), option->fontMetrics.height() + 9));
            break;
        default:
            break;
    }
    return result;
}

int QuietStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
        case PM_ToolTipLabelFrameWidth:
            return 5;
        case PM_ScrollBarExtent:
            return 13;
        case PM_ScrollBarSliderMin:
            return 28;
        case PM_ButtonShiftHorizontal:
        case PM_ButtonShiftVertical:
        case PM_ToolBarFrameWidth:
            return 0;
        case PM_SplitterWidth:
            return 7;
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
        case PM_ExclusiveIndicatorWidth:
        case PM_ExclusiveIndicatorHeight:
            return 16;
        case PM_CheckBoxLabelSpacing:
        case PM_RadioButtonLabelSpacing:
            return 7;
        case PM_LayoutHorizontalSpacing:
        case PM_LayoutVerticalSpacing:
            return 8;
        case PM_LayoutLeftMargin:
        case PM_LayoutTopMargin:
        case PM_LayoutRightMargin:
        case PM_LayoutBottomMargin:
            return 12;
        case PM_ToolBarIconSize:
            return 20;
        case PM_MessageBoxIconSize:
            return Space(36);
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int QuietStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* returned) const {
    switch (hint) {
        case SH_EtchDisabledText:
        case SH_DitherDisabledText:
        case SH_DialogButtonBox_ButtonsHaveIcons:
        case SH_ItemView_ActivateItemOnSingleClick:
        case SH_ScrollBar_LeftClickAbsolutePosition:
            return 0;
        case SH_ToolTip_WakeUpDelay:
            return 450;
        case SH_Slider_AbsoluteSetButtons:
            return Qt::LeftButton;
        default:
            return QProxyStyle::styleHint(hint, option, widget, returned);
    }
}

QIcon QuietStyle::standardIcon(StandardPixmap picture, const QStyleOption* option, const QWidget* widget) const {
    const ThemeColours& colours = Theme::Instance().colours();
    switch (picture) {
        case SP_MessageBoxInformation:
            return Icon(QStringLiteral("information"), colours.accent);
        case SP_MessageBoxQuestion:
            return Icon(QStringLiteral("help"), colours.accent);
        case SP_MessageBoxWarning:
            return Icon(QStringLiteral("warning"), colours.caution);
        case SP_MessageBoxCritical:
            return Icon(QStringLiteral("missed"), colours.danger);
        case SP_LineEditClearButton:
            return Icon(QStringLiteral("close"), colours.mutedText);
        case SP_ToolBarHorizontalExtensionButton:
            return Icon(QStringLiteral("more"));
        default:
            return QProxyStyle::standardIcon(picture, option, widget);
    }
}

void QuietStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (qobject_cast<QComboBox*>(widget) != nullptr || qobject_cast<QToolButton*>(widget) != nullptr ||
        qobject_cast<QScrollBar*>(widget) != nullptr || qobject_cast<QTabBar*>(widget) != nullptr ||
        widget->inherits("QAbstractSpinBox") || widget->inherits("QLineEdit"))
        widget->setAttribute(Qt::WA_Hover);
    // A label often shows text from the database. As markup it could load a picture from the disk, so labels show plain
    // text. Tips are made safe by TipText.
    if (auto* label = qobject_cast<QLabel*>(widget);
        label != nullptr && label->textFormat() == Qt::AutoText && !label->inherits("QTipLabel"))
        label->setTextFormat(Qt::PlainText);
}
