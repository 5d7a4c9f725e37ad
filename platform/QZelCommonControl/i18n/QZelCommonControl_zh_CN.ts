<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>ButtonSelecterView</name>
    <message>
        <source>choose a value</source>
        <translation>选择数值</translation>
    </message>
</context>
<context>
    <name>QmlRangeSliderView</name>
    <message>
        <source>slider not available</source>
        <translation>滑块不可用</translation>
    </message>
</context>
<context>
    <name>SubscribeField</name>
    <message>
        <source>%1
The flow has no such value any more.</source>
        <translation>%1
流程中已没有该数值。</translation>
    </message>
    <message>
        <source>not readable</source>
        <translation>无法读取</translation>
    </message>
    <message>
        <source>not bound</source>
        <translation>未绑定</translation>
    </message>
    <message>
        <source>The binding could not be read.</source>
        <translation>无法读取绑定数据。</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>已缺失</translation>
    </message>
</context>
<context>
    <name>SubscribeMenuModel</name>
    <message>
        <source>not bound</source>
        <translation>未绑定</translation>
    </message>
</context>
<context>
    <name>SubscribeMenuPopup</name>
    <message>
        <source>filter</source>
        <translation>筛选</translation>
    </message>
    <message>
        <source>no matching values</source>
        <translation>没有匹配的数值</translation>
    </message>
</context>
</TS>
