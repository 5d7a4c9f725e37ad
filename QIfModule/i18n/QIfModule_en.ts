<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="zh_CN">
<context>
    <name>QIfModuleMainView</name>
    <message>
        <source>Form</source>
        <translation>Form</translation>
    </message>
    <message>
        <source>名称</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>注释</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>条件</source>
        <translation>Condition</translation>
    </message>
    <message>
        <source>有效值范围</source>
        <translation>Valid range</translation>
    </message>
    <message>
        <source>int</source>
        <translation>int</translation>
    </message>
    <message>
        <source>float</source>
        <translation>float</translation>
    </message>
    <message>
        <source>全部</source>
        <translation>All</translation>
    </message>
    <message>
        <source>任意</source>
        <translation>Any</translation>
    </message>
    <message>
        <source>  判断方式</source>
        <translation>  Judgement mode</translation>
    </message>
    <message>
        <source>条件符合，判断结果为OK</source>
        <translation>The result is OK when the conditions are met</translation>
    </message>
    <message>
        <source>未找到绑定数据</source>
        <translation>No bound data found</translation>
    </message>
    <message>
        <source>最多添加</source>
        <translation>Conditions, at most</translation>
    </message>
    <message>
        <source>保存时末尾丢失的字节数：%1</source>
        <translation>Bytes lost at the end when stored: %1</translation>
    </message>
    <message>
        <source>不再恢复的条件：%1</source>
        <translation>Conditions that do not come back: %1</translation>
    </message>
    <message>
        <source>注释只恢复为：%1</source>
        <translation>The note comes back only as: %1</translation>
    </message>
    <message>
        <source>另外恢复的条件：%1</source>
        <translation>Conditions that come back in addition: %1</translation>
    </message>
</context>
</TS>
