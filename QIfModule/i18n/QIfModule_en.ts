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
</context>
</TS>
